#pragma once

#include "chosen_toolkit/VisualChoosingContext.h"
#include "integration/Export.h"

namespace velmora {
namespace sdk {
namespace integration {

/// The OpenGL context of a drawing area. It asks for what the "ScreenRendering" settings say and,
/// with "UseAdvancedVisualChooser" on, picks the X visual itself: the one with the configured
/// "VisualID", else the best TrueColor visual by its own ranking. In both cases the ID is written
/// back to "VisualID": with the switch on, the contexts created later in the same run take that
/// visual without ranking again; with it off, the toolkit chooses anew for each.
///
/// GUI thread only. Without X11 or GLX, without any TrueColor visual, or with a configured ID that matches
/// none, the toolkit chooses and nothing is written. Exceptions of the toolbox pass through.
class VELMORA_INTEGRATION_EXPORT GoodVisualChooserQGLContext : public toolkit::VisualChoosingContext {
public:
    GoodVisualChooserQGLContext();

    /// The chosen visual (an `XVisualInfo*` that the caller frees with `XFree`), or null to leave
    /// the choice to the toolkit. Called by the toolkit while it creates the context.
    void* chooseVisual() override;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
