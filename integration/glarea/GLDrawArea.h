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
class TouchInput;
} // namespace intern

/// What a drawing area makes of fingers.
enum TouchInput_e {
    /// What the toolkit makes of them for a widget that takes no touches: one finger is the left button on Qt 5 and 6,
    /// two are nothing. A host can take touches and gestures itself, as of any widget.
    TouchInput_Toolkit = 0,
    /// One finger is the left button, at once; further ones are nothing.
    TouchInput_OneFinger = 1,
    /// One finger is the left button as soon as it moves or is lifted, for it may be the first of two. Two fingers that
    /// go apart are a wheel turned up at the place between them, a notch (120) for each 20 percent; two that turn
    /// clockwise are a horizontal wheel, 8 for each degree. Both on the screen, and where the toolkit tells of it on a
    /// touch pad.
    TouchInput_Gestures = 2
};

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

    /// Chooses what is made of fingers. It comes through all event filters as mouse and wheel events do, to the
    /// listeners of the area and of the event monitor. Another choice ends what fingers have begun.
    void setTouchInput(TouchInput_e input);
    /// The present choice; TouchInput_Toolkit at first.
    TouchInput_e touchInput() const { return m_touchInput; }

    void addKeyboardListener(KeyEventListenerInterface* listener) override;
    void removeKeyboardListener(KeyEventListenerInterface* listener) override;
    void addMouseListener(MouseEventListenerInterface* listener) override;
    void removeMouseListener(MouseEventListenerInterface* listener) override;

public Q_SLOTS:
    /// The area is going away: it is not valid any more, and everybody who listens hears of it.
    void onDestroyed();

protected:
    /// Takes the touches that `setTouchInput` asks for.
    bool event(QEvent* event) override;
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
    std::unique_ptr<intern::TouchInput> m_touch; ///< from the first choice on
    TouchInput_e m_touchInput = TouchInput_Toolkit;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
