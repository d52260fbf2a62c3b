#include "chosen_toolkit/GLWidget.h"

#include "integration/toolkit/ContextFacts.h"
#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/DisplayScale.h"
#include "integration/toolkit/Exposure.h"
#include "integration/toolkit/qt5/FramebufferReading.h"
#include "integration/toolkit/qt6/WaylandClient.h"

#include <QOffscreenSurface>
#include <QOpenGLFunctions>
#include <QWindow>

namespace velmora::sdk::integration::toolkit {

GLWidget::GLWidget(QWidget* parent) : GLWidget(new VisualChoosingContext(screenFormat(FormatRequest())), parent) {}

GLWidget::GLWidget(VisualChoosingContext* context, QWidget* parent) : QWidget(parent), m_context(context)
{
    // Otherwise the toolkit gives every widget beside this one a window of its own, too, which it does not paint on
    // Wayland until the widget changes its size.
    if (isWaylandClient())
        QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    if (m_context->create())
        prepareWindow();
}

GLWidget::~GLWidget()
{
    if (QOpenGLContext::currentContext() == m_context.get())
        releaseCurrentContext();
}

bool GLWidget::isValid() const
{
    return m_context->isValid();
}

// The toolkit takes the window for one that it paints itself. It is told otherwise before the window exists, and
// again when it has made another one, as it may when the widget gets another parent.
void GLWidget::prepareWindow()
{
    QWindow* const window = windowHandle();
    if (!window || window->surfaceType() == QSurface::OpenGLSurface)
        return;
    const bool existed = window->handle() != nullptr;
    window->destroy();
    window->setSurfaceType(QSurface::OpenGLSurface);
    window->setFormat(m_context->requestedFormat());
    if (!existed)
        return;
    window->create();
    window->setGeometry(geometry());
    window->setVisible(isVisible());
}

// Without a window, before the widget is shown and while its parents go, there is nothing to draw into, but listeners
// make and release what they hold in the context all the same.
void GLWidget::makeCurrent()
{
    if (!isValid())
        return;
    prepareWindow();
    if (windowHandle() && windowHandle()->handle()) {
        m_context->makeCurrent(windowHandle());
        return;
    }
    if (!m_withoutWindow) {
        m_withoutWindow = std::make_unique<QOffscreenSurface>();
        m_withoutWindow->setFormat(m_context->format());
        m_withoutWindow->create();
    }
    m_context->makeCurrent(m_withoutWindow.get());
}

void GLWidget::doneCurrent()
{
    releaseCurrentContext();
}

void GLWidget::swapBuffers()
{
    if (isValid() && windowHandle() && windowHandle()->handle())
        m_context->swapBuffers(windowHandle());
}

QImage GLWidget::grabFrameBuffer()
{
    makeCurrent();
    if (QOpenGLContext::currentContext() != m_context.get())
        return QImage();
    LargeImage picture;
    return readFramebuffer(m_context->defaultFramebufferObject(), screenSize(*this), false, picture);
}

QPaintEngine* GLWidget::paintEngine() const
{
    return nullptr;
}

void GLWidget::initializeOnce()
{
    if (m_isInitialized)
        return;
    m_isInitialized = true;
    initializeGL();
    tellSize();
}

void GLWidget::tellSize()
{
    const QSize size = screenSize(*this);
    resizeGL(size.width(), size.height());
}

void GLWidget::paintEvent(QPaintEvent*)
{
    if (updatesEnabled())
        glDraw();
}

void GLWidget::glDraw()
{
    if (!isValid())
        return;
    makeCurrent();
    initializeOnce();
    paintGL();
    if (m_autoBufferSwap && isReadyToSwap(*this))
        swapBuffers();
    else
        m_context->functions()->glFlush();
}

void GLWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (QWindow* const ofWindow = window()->windowHandle())
        ofWindow->installEventFilter(this);
}

// Where the toolkit tells only the outer window that it is exposed, this one is made to be painted with it.
bool GLWidget::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Expose && receiver == window()->windowHandle() && isReadyToSwap(*this) &&
        !windowHandle()->isExposed()) {
        setAttribute(Qt::WA_Mapped);
        update();
    }
    return QWidget::eventFilter(receiver, event);
}

void GLWidget::resizeEvent(QResizeEvent*)
{
    if (!isValid())
        return;
    makeCurrent();
    if (m_isInitialized)
        tellSize();
    else
        initializeOnce();
}

} // namespace velmora::sdk::integration::toolkit
