#include "integration/glarea/TouchInput.h"

#include <QApplication>
#include <QInputEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace velmora::sdk::integration::intern {

using toolkit::Finger;

namespace {

constexpr double EighthsPerDegree = 8.0;
constexpr double EighthsPerNotch = 120.0;
constexpr double FactorPerNotch = 1.2; // by which hosts zoom for a notch
constexpr double LeastDistance = 1.0;  // of two fingers, in pixels: below it they have no direction

bool isFar(const QPointF& from, const QPointF& to)
{
    return (to - from).manhattanLength() >= QApplication::startDragDistance();
}

} // namespace

bool TouchInput::take(QEvent& event)
{
    toolkit::PadGesture gesture;
    const toolkit::TouchPhase phase = toolkit::touchPhaseOf(event);
    const bool isOfPad = phase == toolkit::NoTouch && m_handlesGestures && toolkit::readPadGesture(event, gesture);
    if (phase == toolkit::NoTouch && !isOfPad)
        return false;
    event.accept(); // or the toolkit makes mouse events of its own
    m_modifiers = static_cast<QInputEvent&>(event).modifiers();
    if (isOfPad)
        turnWheels(gesture.position, gesture.factor, gesture.degrees);
    else
        takeTouch(phase, toolkit::fingersOf(event));
    return true;
}

void TouchInput::giveUp()
{
    if (m_state == Waiting)
        m_state = Nothing; // nobody has heard of it
    end();
}

bool TouchInput::takeTouch(toolkit::TouchPhase phase, const Fingers& fingers)
{
    Fingers down;
    std::copy_if(fingers.begin(), fingers.end(), std::back_inserter(down), [](const Finger& f) { return f.isDown; });
    if (phase == toolkit::TouchIsGivenUp) {
        giveUp();
        return false;
    }
    if (phase == toolkit::TouchBegins && !down.empty() && !begin(down[0]))
        return false;
    const bool isDown = follow(fingers);
    if (m_handlesGestures && down.size() > 1)
        return stretch(down[0], down[1]);
    m_hasPair = false;
    return isDown ? goOn() : end();
}

// Where the first finger is; false when it is no longer down.
bool TouchInput::follow(const Fingers& fingers)
{
    const auto first =
        std::find_if(fingers.begin(), fingers.end(), [this](const Finger& finger) { return finger.id == m_finger; });
    if (first == fingers.end())
        return false;
    m_now = first->position;
    return first->isDown;
}

bool TouchInput::begin(const Finger& finger)
{
    m_finger = finger.id;
    m_pressed = m_last = m_now = finger.position;
    m_state = Waiting;
    m_hasPair = false;
    m_stretched = m_turned = 0;
    return m_handlesGestures || press();
}

bool TouchInput::goOn()
{
    if (m_state == Waiting && isFar(m_pressed, m_now) && !press())
        return false;
    if (m_state != Pressing || m_now == m_last)
        return true;
    m_last = m_now;
    return send(QEvent::MouseMove, m_now);
}

bool TouchInput::end()
{
    m_hasPair = false;
    if (m_state == Waiting && !press())
        return false;
    return release();
}

// The gesture is that of the line between the fingers. What the first did before it became one of two is over.
bool TouchInput::stretch(const Finger& first, const Finger& second)
{
    if (m_state == Waiting)
        m_state = Nothing;
    if (!release())
        return false;
    const QLineF line(first.position, second.position);
    if (line.length() < LeastDistance)
        return true;
    const Pair before = m_pair;
    const bool goesOn = m_hasPair && before.first == first.id && before.second == second.id;
    m_pair = {first.id, second.id, line.length(), -line.angle()};
    m_hasPair = true;
    if (!goesOn)
        return true;
    const double degrees = std::remainder(m_pair.degrees - before.degrees, 360.0);
    return turnWheels(line.pointAt(0.5), m_pair.distance / before.distance, degrees);
}

bool TouchInput::turnWheels(const QPointF& position, double factor, double degrees)
{
    const double notches = factor > 0 ? std::log(factor) / std::log(FactorPerNotch) : 0;
    return turnWheel(position, notches * EighthsPerNotch, m_stretched, true) &&
           turnWheel(position, degrees * EighthsPerDegree, m_turned, false);
}

// A record has whole units. What is below one waits for the next event, so that slow fingers come as far as fast ones,
// and there and back is nothing. It ends with the gesture: the next may be meant for something else.
bool TouchInput::turnWheel(const QPointF& position, double wanted, double& remainder, bool isVertical)
{
    remainder += wanted;
    const int delta = static_cast<int>(std::trunc(remainder));
    remainder -= delta;
    if (delta == 0)
        return true;
    const QPointer<QWidget> alive(&m_widget);
    const auto wheel = toolkit::newWheelEvent({delta, isVertical}, position, m_widget, m_modifiers);
    QCoreApplication::sendEvent(&m_widget, wheel.get());
    return !alive.isNull();
}

bool TouchInput::press()
{
    const bool isSecond = isSecondTap();
    if (isSecond)
        m_sinceTap.invalidate(); // a third tap is a press again
    else
        m_sinceTap.start();
    m_tapped = m_pressed;
    m_state = Pressing;
    return send(isSecond ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, m_pressed);
}

bool TouchInput::release()
{
    const bool wasPressing = m_state == Pressing;
    m_state = Nothing;
    return !wasPressing || send(QEvent::MouseButtonRelease, m_now);
}

bool TouchInput::isSecondTap() const
{
    return m_sinceTap.isValid() && m_sinceTap.elapsed() < QApplication::doubleClickInterval() &&
           !isFar(m_tapped, m_pressed);
}

bool TouchInput::send(QEvent::Type type, const QPointF& position)
{
    const QPointer<QWidget> alive(&m_widget);
    const auto mouse = toolkit::newLeftButtonEvent(type, position, m_widget, m_modifiers);
    QCoreApplication::sendEvent(&m_widget, mouse.get());
    return !alive.isNull();
}

} // namespace velmora::sdk::integration::intern
