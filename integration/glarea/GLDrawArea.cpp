#include "integration/glarea/GLDrawArea.h"

#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"
#include "integration/glarea/GoodVisualChooserQGLContext.h"
#include "integration/glarea/TouchInput.h"
#include "integration/intern/EventRecords.h"
#include "integration/toolkit/ContextFacts.h"
#include "integration/toolkit/DisplayScale.h"
#include "integration/toolkit/Exposure.h"
#include "integrationmanager/GLDrawAreaPageTracker.h"
#include "integrationmanager/GLDrawAreaStateObservable.h"
#include "integrationmanager/KeyEventObservable.h"
#include "integrationmanager/MouseEventObservable.h"

#include <QFocusEvent>
#include <QPalette>
#include <cstdio>

namespace velmora::sdk::integration {

GLDrawArea::GLDrawArea(QWidget* parent)
    // The widget takes ownership of the context.
    : toolkit::GLWidget(new GoodVisualChooserQGLContext, parent), m_glContext(*this), m_valid(false),
      m_sizeChanged(false)
{
    setObjectName(QLatin1String("GLDrawArea"));
    if (VelUtilInternalIsPrintDebugOn())
        printFormat();
    createObservers();
    if (!toolkit::GLWidget::isValid()) {
        // Deliberately not released on this path: the engine may hold on to what it was given.
        static_cast<void>(m_pageTracker.release());
        static_cast<void>(m_stateObservable.release());
        static_cast<void>(m_mouseObservable.release());
        static_cast<void>(m_keyObservable.release());
        throw ExceptionBase("Failed to create GLDrawArea.", false);
    }
    m_valid = true;
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    toolkit::followScreenScale(*this);
    setAutoBufferSwap(false);
    // Twice; the repetition is deliberate and harmless.
    setAttributesForPerformance();
    setAttributesForPerformance();
    connect(this, SIGNAL(destroyed(QObject*)), this, SLOT(onDestroyed()));
    m_sizeChanged = true;
}

GLDrawArea::~GLDrawArea()
{
    // While the GL context still works, so that listeners can release what they hold in it.
    onDestroyed();
    // In the order of their creation; the tracker leaves the page manager before the observables
    // that it listens to are gone.
    m_pageTracker.reset();
    m_stateObservable.reset();
    m_mouseObservable.reset();
    m_keyObservable.reset();
}

void GLDrawArea::createObservers()
{
    GLDrawAreaInterface& area = *this;
    m_pageTracker = std::make_unique<intern::GLDrawAreaPageTracker>(area);
    m_stateObservable = std::make_unique<intern::GLDrawAreaStateObservable>(area);
    m_mouseObservable = std::make_unique<intern::MouseEventObservable>();
    m_keyObservable = std::make_unique<intern::KeyEventObservable>();
}

void GLDrawArea::printFormat() const
{
    const toolkit::ContextFacts actual = toolkit::factsOf(format());
    const struct {
        const char* label; // the runs of spaces are part of the output
        long value;
    } facts[] = {
        {"GL accumulation Buffer On", actual.hasAccum},        {"GL accumulation Buffer Sz", actual.accumSize},
        {"GL alpha Buffer Size     ", actual.alphaSize},       {"GL depth Buffer On       ", actual.hasDepth},
        {"GL depth Buffer Size     ", actual.depthSize},       {"GL stencil Buffer Sz     ", actual.stencilSize},
        {"GL double Buffer On      ", actual.hasDoubleBuffer}, {"GL red Buffer Size       ", actual.redSize},
        {"GL green Buffer Size     ", actual.greenSize},       {"GL blue Buffer Size      ", actual.blueSize},
        {"GL major Version         ", actual.majorVersion},    {"GL minor Version         ", actual.minorVersion},
        {"GL plane                 ", actual.plane},           {"GL swap Interval         ", actual.swapInterval},
    };
    for (const auto& fact : facts)
        std::printf("%s = %ld\n", fact.label, fact.value);
}

// The toolkit shall never fill the area or draw it differently when it is disabled or inactive: each
// such change would be a repaint over the engine's picture.
void GLDrawArea::setAttributesForPerformance()
{
    setAutoFillBackground(false);
    QPalette palette = this->palette();
    const QPalette::ColorGroup groups[] = {QPalette::Disabled, QPalette::Inactive};
    for (const QPalette::ColorGroup group : groups) {
        for (int number = 0; number < QPalette::NColorRoles; ++number) {
            const QPalette::ColorRole role = static_cast<QPalette::ColorRole>(number);
            // The second assignment overwrites the first; both are kept deliberately.
            palette.setBrush(group, role, QBrush(palette.color(QPalette::Active, role)));
            palette.setBrush(group, role, palette.brush(QPalette::Active, role));
        }
    }
    setPalette(palette);
}

bool GLDrawArea::isVisible() const
{
    return QWidget::isVisible();
}

// Not width() and height() where the toolkit scales: a viewport of that size would leave a part of the
// area empty.
void GLDrawArea::getSize(int* width, int* height) const
{
    const QSize size = toolkit::screenSize(*this);
    *width = size.width();
    *height = size.height();
}

GLContextInterface& GLDrawArea::getGLContext()
{
    return m_glContext;
}

bool GLDrawArea::isValidWidget() const
{
    return toolkit::GLWidget::isValid() && m_valid;
}

void GLDrawArea::addStateListener(GLDrawAreaListenerInterface* listener)
{
    m_stateObservable->addListener(listener);
}

void GLDrawArea::removeStateListener(GLDrawAreaListenerInterface* listener)
{
    m_stateObservable->removeListener(listener);
}

// Nothing here reacts to a new connection.
void GLDrawArea::signalDrawAreaExposedConnected() const {}
void GLDrawArea::signalDrawAreaDestroyedConnected() const {}
void GLDrawArea::signalDrawAreaFocusGainedConnected() const {}

void GLDrawArea::setPageManager(PageManagerInterface& manager)
{
    m_pageTracker->setPageManager(manager);
}

void GLDrawArea::addKeyboardListener(KeyEventListenerInterface* listener)
{
    m_keyObservable->addListener(listener);
}

void GLDrawArea::removeKeyboardListener(KeyEventListenerInterface* listener)
{
    m_keyObservable->removeListener(listener);
}

void GLDrawArea::addMouseListener(MouseEventListenerInterface* listener)
{
    m_mouseObservable->addListener(listener);
}

void GLDrawArea::removeMouseListener(MouseEventListenerInterface* listener)
{
    m_mouseObservable->removeListener(listener);
}

void GLDrawArea::onDestroyed()
{
    m_valid = false;
    m_stateObservable->notifyOfDestruction();
    emitDrawAreaDestroyed();
}

void GLDrawArea::setTouchInput(TouchInput_e input)
{
    if (input == m_touchInput)
        return;
    if (!m_touch)
        m_touch = std::make_unique<intern::TouchInput>(*this); // it stays: this may be called from what it sends
    m_touchInput = input;
    m_touch->handleGestures(input == TouchInput_Gestures);
    setAttribute(Qt::WA_AcceptTouchEvents, input != TouchInput_Toolkit);
    m_touch->giveUp();
}

bool GLDrawArea::event(QEvent* event)
{
    if (m_touchInput != TouchInput_Toolkit && m_touch->take(*event))
        return true;
    return toolkit::GLWidget::event(event);
}

void GLDrawArea::keyPressEvent(QKeyEvent* event)
{
    intern::KeyEvent record = intern::recordOf(*event, *this);
    m_keyObservable->notifyOfKeyPressed(record, *this);
}

void GLDrawArea::keyReleaseEvent(QKeyEvent* event)
{
    intern::KeyEvent record = intern::recordOf(*event, *this);
    m_keyObservable->notifyOfKeyReleased(record, *this);
}

void GLDrawArea::mouseMoveEvent(QMouseEvent* event)
{
    intern::MouseEvent record = intern::recordOf(*event, *this, *this);
    m_mouseObservable->notifyOfMouseMoved(record, *this);
    emitMouseMoved(record);
}

void GLDrawArea::mousePressEvent(QMouseEvent* event)
{
    intern::MouseEvent record = intern::recordOf(*event, *this, *this);
    m_mouseObservable->notifyOfButtonPressed(record, *this);
    emitButtonPressed(record);
}

void GLDrawArea::mouseReleaseEvent(QMouseEvent* event)
{
    intern::MouseEvent record = intern::recordOf(*event, *this, *this);
    m_mouseObservable->notifyOfButtonReleased(record, *this);
    emitButtonReleased(record);
}

void GLDrawArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    intern::MouseEvent record = intern::recordOf(*event, *this, *this);
    m_mouseObservable->notifyOfButtonDoublePressed(record, *this);
    emitButtonDoublePressed(record);
}

void GLDrawArea::focusInEvent(QFocusEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        m_stateObservable->notifyOfFocusGained();
    emitDrawAreaFocusGained();
}

// Deliberately nothing: the toolkit's handler would repaint the area.
void GLDrawArea::focusOutEvent(QFocusEvent*) {}

void GLDrawArea::resizeEvent(QResizeEvent* event)
{
    if (m_pageTracker->state() == 0)
        toolkit::GLWidget::resizeEvent(event);
    m_sizeChanged = true;
}

void GLDrawArea::paintEvent(QPaintEvent* event)
{
    if (m_pageTracker->state() == 0 && context()->isValid()) {
        setAutoBufferSwap(true);
        toolkit::GLWidget::paintEvent(event);
        setAutoBufferSwap(false);
    }
    // On another screen the same widget may have another size in pixels, and no resize event tells of it.
    const double scale = toolkit::screenPixelsPerPixel(*this);
    m_sizeChanged = m_sizeChanged || scale != m_scale;
    m_scale = scale;
    m_stateObservable->notifyOfExposure(m_sizeChanged);
    emitDrawAreaExposed(m_sizeChanged);
    m_sizeChanged = false;
}

void GLDrawArea::GLContext::swapBuffers()
{
    if (toolkit::isReadyToSwap(m_area))
        m_area.toolkit::GLWidget::swapBuffers();
}

bool GLDrawArea::GLContext::setCurrentGL()
{
    m_area.makeCurrent();
    return true;
}

// Deliberately leaves the context current.
bool GLDrawArea::GLContext::clearCurrentGL()
{
    return true;
}

} // namespace velmora::sdk::integration
