#pragma once

#include "chosen_toolkit/GLWidget.h"
#include "integration/Export.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace toolkit {

/// A GL context whose X visual is chosen by `chooseVisual()`.
///
/// Qt 5 leaves the visual to its platform plugin: the function is called while the context is created, and the
/// sizes of the visual it returns (colours, alpha, depth, stencil, samples, double buffering) become
/// the ones asked for. What comes out is a visual with at least these sizes, not always the one that
/// was chosen, and accumulation bits cannot be asked for.
class VELMORA_INTEGRATION_EXPORT VisualChoosingContext : public QGLContext {
public:
    /// A context of this format, not created yet.
    explicit VisualChoosingContext(const QGLFormat& format);

    /// The visual that the toolkit would choose for the context's format, or null without X11.
    virtual void* chooseVisual();

protected:
    /// Whether an overriding `chooseVisual()` found none and is asked once more: then it leaves the
    /// choice to the toolkit. Qt 5 does so by itself.
    bool toolkitMustChoose() const;
    /// The toolkit's hook in which the visual is chosen; false when there is no context to be had.
    bool chooseContext(const QGLContext* shareContext) override;
};

} // namespace toolkit
} // namespace integration
} // namespace sdk
} // namespace velmora
