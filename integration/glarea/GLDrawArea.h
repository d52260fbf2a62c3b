#pragma once

#include "chosen_toolkit/GLWidget.h"
#include "integration/Export.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/GLDrawAreaInterface.h"

#include <memory>

// The string by which qobject_cast finds the interface.
Q_DECLARE_INTERFACE(velmora::sdk::integration::GLDrawAreaInterface, "GLDrawAreaInterface")

namespace velmora {
namespace sdk {
namespace integration {

namespace intern {
class GLDrawAreaPageTracker;
class GLDrawAreaStateObservable;
class KeyEventObservable;
class MouseEventObservable;
} // namespace intern

/// The widget that the engine draws into with OpenGL.
///
/// A host creates it like any widget and hands it to the engine with `setPageManager`, given the
/// manager's `getPageManager()`; from then on the engine paints a page into it. The widget passes
/// paint, focus, key and mouse events on to its listeners and signals. Focus, key and mouse events
/// never reach the toolkit's default handlers, paint and resize events only while the area shows no
/// page. Events are valid only while a listener is called; one that keeps an event keeps a clone.
///
/// The engine's pixels are those of the screen: sizes and positions that it is told are in them. Where the
/// toolkit scales its windows (QT_SCALE_FACTOR and the like), the widget's own are larger, and a
/// host that hands the engine a position of the widget multiplies it by what `getSize` tells over `size()`.
///
/// GUI thread only. The constructor throws velmora::ExceptionBase "Failed to create GLDrawArea."
/// when the toolkit gets no OpenGL context; what reading the configuration throws passes through.
class VELMORA_INTEGRATION_EXPORT GLDrawArea : public toolkit::GLWidget, public virtual GLDrawAreaInterface {
    Q_OBJECT
    Q_INTERFACES(velmora::sdk::integration::GLDrawAreaInterface)

public:
    /// Chooses the X visual, creates the OpenGL context and the observers that listeners are added to.
    explicit GLDrawArea(QWidget* parent = nullptr);
    ~GLDrawArea() override;

    bool isVisible() const override;
    /// In pixels of the screen, see the class.
    void getSize(int* width, int* height) const override;
    GLContextInterface& getGLContext() override;
    bool isValidWidget() const override;
    void addStateListener(GLDrawAreaListenerInterface* listener) override;
    void removeStateListener(GLDrawAreaListenerInterface* listener) override;
    void signalDrawAreaExposedConnected() const override;
    void signalDrawAreaDestroyedConnected() const override;
    void signalDrawAreaFocusGainedConnected() const override;
    void setPageManager(PageManagerInterface& manager) override;

    void addKeyboardListener(KeyEventListenerInterface* listener) override;
    void removeKeyboardListener(KeyEventListenerInterface* listener) override;
    void addMouseListener(MouseEventListenerInterface* listener) override;
    void removeMouseListener(MouseEventListenerInterface* listener) override;

public Q_SLOTS:
    /// The area is going away: it is not valid any more, and everybody who listens hears of it.
    void onDestroyed();

protected:
    /// @{
    /// Passes the toolkit's event on, see the class.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// @}

private:
    class GLContext : public virtual GLContextInterface {
    public:
        explicit GLContext(GLDrawArea& area) : m_area(area) {}

        void swapBuffers() override;
        bool setCurrentGL() override;
        bool clearCurrentGL() override;

    private:
        GLDrawArea& m_area;
    };

    void printFormat() const;
    void createObservers();
    void setAttributesForPerformance();

    GLContext m_glContext;
    bool m_valid;
    bool m_sizeChanged;
    double m_scale = 0; ///< at the last paint; 0 before the first
    std::unique_ptr<intern::GLDrawAreaPageTracker> m_pageTracker;
    std::unique_ptr<intern::GLDrawAreaStateObservable> m_stateObservable;
    std::unique_ptr<intern::MouseEventObservable> m_mouseObservable;
    std::unique_ptr<intern::KeyEventObservable> m_keyObservable;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
