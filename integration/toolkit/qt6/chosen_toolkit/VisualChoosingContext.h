#pragma once

#include "integration/Export.h"

#include <QOpenGLContext>
#include <QSurfaceFormat>

namespace velmora {
namespace sdk {
namespace integration {
namespace toolkit {

/// A GL context whose X visual is chosen by `chooseVisual()`.
///
/// Qt 6 leaves the visual to its platform plugin: the function is called while the context is created, and the
/// sizes of the visual it returns (colours, alpha, depth, stencil, samples, double buffering) become
/// the ones asked for. What comes out is a visual with at least these sizes, not always the one that
/// was chosen, and accumulation bits cannot be asked for.
class VELMORA_INTEGRATION_EXPORT VisualChoosingContext : public QOpenGLContext {
public:
    /// A context of this format, not created yet.
    explicit VisualChoosingContext(const QSurfaceFormat& format);
    ~VisualChoosingContext() override;

    /// The visual that fits the context's format best, or null without X11.
    virtual void* chooseVisual();

    /// Chooses the visual and creates the context; false when there is none to be had.
    bool create();
    /// What the context is asked for: before it is created the format of the constructor, then also the sizes of the
    /// chosen visual. The window that it draws into must be asked for the same.
    const QSurfaceFormat& requestedFormat() const { return m_requestedFormat; }

protected:
    /// Whether an overriding `chooseVisual()` found none and is asked once more: then it leaves the
    /// choice to the toolkit. Qt 6 does so by itself.
    bool toolkitMustChoose() const;

private:
    QSurfaceFormat m_requestedFormat;
};

} // namespace toolkit
} // namespace integration
} // namespace sdk
} // namespace velmora
