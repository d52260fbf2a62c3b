#pragma once

#include "integration/toolkit/TouchEvents.h"

#include <QElapsedTimer>
#include <QPointF>
#include <vector>

class QEvent;
class QWidget;

namespace velmora::sdk::integration::intern {

/// Makes mouse and wheel events of what fingers do on a widget, and sends them to it through all filters, so that they
/// come as any others do. One finger is the left button. Where gestures are handled, two that go apart are a wheel that
/// turns, and two that turn a wheel that is tilted. GUI thread only.
class TouchInput {
public:
    explicit TouchInput(QWidget& widget) : m_widget(widget) {}

    void handleGestures(bool handled) { m_handlesGestures = handled; }
    /// Whether the event was of fingers and all is done for it; else it is the toolkit's. The widget, and this with it,
    /// may be gone afterwards.
    bool take(QEvent& event);
    /// Ends what the fingers have begun. The widget may be gone afterwards.
    void giveUp();

private:
    using Fingers = std::vector<toolkit::Finger>;

    /// What has come of the finger that came down first.
    enum State {
        Nothing, ///< there is none, or it has done what it was for
        Waiting, ///< it may become the first of two
        Pressing ///< it is the left button
    };
    /// Two fingers, as the last event told of them.
    struct Pair {
        int first = 0;
        int second = 0;
        double distance = 0;
        double degrees = 0;
    };

    // All return false when the widget is gone.
    bool takeTouch(toolkit::TouchPhase phase, const Fingers& fingers);
    bool begin(const toolkit::Finger& finger);
    bool goOn();
    bool end();
    bool stretch(const toolkit::Finger& first, const toolkit::Finger& second);
    bool turnWheels(const QPointF& position, double factor, double degrees);
    bool turnWheel(const QPointF& position, double wanted, double& remainder, bool isVertical);
    bool press();
    bool release();
    bool send(QEvent::Type type, const QPointF& position);

    bool follow(const Fingers& fingers);
    bool isSecondTap() const;

    QWidget& m_widget;
    bool m_handlesGestures = false;
    State m_state = Nothing;
    int m_finger = 0;  ///< the first, while there is a state
    QPointF m_pressed; ///< where it came down
    QPointF m_last;    ///< where it was told to be
    QPointF m_now;
    Qt::KeyboardModifiers m_modifiers;
    Pair m_pair;
    bool m_hasPair = false;
    double m_stretched = 0; ///< what is left of turns of the wheels, below their unit
    double m_turned = 0;
    QElapsedTimer m_sinceTap;
    QPointF m_tapped;
};

} // namespace velmora::sdk::integration::intern
