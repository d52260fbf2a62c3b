#pragma once

#include "chosen_toolkit/GLWidget.h"
#include "integration/Export.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace toolkit {

/// A GL context whose X visual is chosen by `chooseVisual()`: Qt 4 asks that function itself and takes exactly
/// the visual that it returns.
class VELMORA_INTEGRATION_EXPORT VisualChoosingContext : public QGLContext {
public:
    /// A context of this format, not created yet.
    explicit VisualChoosingContext(const QGLFormat& format);

    /// The visual that the toolkit would choose for the context's format.
    void* chooseVisual() override;

protected:
    /// Whether an overriding `chooseVisual()` found none and is asked once more: then it leaves the
    /// choice to the toolkit.
    bool toolkitMustChoose() const;
    /// The toolkit's hook in which the visual is chosen; false when there is no context to be had.
    bool chooseContext(const QGLContext* shareContext = 0) override;

private:
    bool m_toolkitMustChoose = false;
};

} // namespace toolkit
} // namespace integration
} // namespace sdk
} // namespace velmora
