#pragma once

#include "chosen_toolkit/VisualChoosingContext.h"
#include "integration/Export.h"

#include <QImage>
#include <QWidget>
#include <memory>

class QOffscreenSurface;

namespace velmora {
namespace sdk {
namespace integration {
namespace toolkit {

/// The widget that a drawing area is, its context, and what a context is asked for.
///
/// Qt 6 has no widget with buffers of its own to swap at any time. This one has a native window, into which its
/// own OpenGL context draws; nothing of the toolkit ever paints there. Its context and its window last from the
/// constructor to the destructor.
class VELMORA_INTEGRATION_EXPORT GLWidget : public QWidget {
public:
    /// A widget with a context of the toolkit's default format.
    explicit GLWidget(QWidget* parent = nullptr);
    /// Takes ownership of the context and creates it.
    explicit GLWidget(VisualChoosingContext* context, QWidget* parent = nullptr);
    ~GLWidget() override;

    /// Whether there is an OpenGL context.
    bool isValid() const;
    VisualChoosingContext* context() const { return m_context.get(); }
    /// What the context has.
    QSurfaceFormat format() const { return m_context->format(); }

    void makeCurrent();
    /// Leaves no context current, whosever it was.
    void doneCurrent();
    void swapBuffers();
    /// What is in the buffer that is drawn into, in pixels of the screen. Makes the context current.
    QImage grabFrameBuffer();

    QPaintEngine* paintEngine() const override;

protected:
    /// Whether the buffers are swapped at the end of each paint event; at first they are.
    void setAutoBufferSwap(bool on) { m_autoBufferSwap = on; }
    bool autoBufferSwap() const { return m_autoBufferSwap; }

    /// @{
    /// For those who draw when the toolkit paints; the context is current. `resizeGL` is told the size in pixels of
    /// the screen, before the first drawing and after each change.
    virtual void initializeGL() {}
    virtual void resizeGL(int, int) {}
    virtual void paintGL() {}
    /// @}
    /// One whole drawing, with the buffers swapped or flushed at its end. Nothing without a context.
    virtual void glDraw();

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void prepareWindow();
    void initializeOnce();
    void tellSize();

    std::unique_ptr<QOffscreenSurface> m_withoutWindow;
    std::unique_ptr<VisualChoosingContext> m_context;
    bool m_isInitialized = false;
    bool m_autoBufferSwap = true;
};

using GLContext = QOpenGLContext;
using ContextFormat = QSurfaceFormat;

} // namespace toolkit
} // namespace integration
} // namespace sdk
} // namespace velmora
