#include "ValueLabel.h"

#include "IdleTime.h"
#include "engine/VelUtil.h"
#include "integration/glarea/GLDrawArea.h"
#include "interfaces/MouseEventInterface.h"

#include <QEvent>

namespace viewer {

using namespace velmora::sdk::integration;

ValueLabel::ValueLabel(GLDrawArea& area)
{
    setTextFormat(Qt::PlainText); // it names columns
    setMinimumWidth(1);           // a long name does not widen the window
    area.addMouseListener(this);
    area.installEventFilter(this);
    idleTime().addOnIdleListener(this);
}

// The area is gone by now, or going, and has no listeners any more.
ValueLabel::~ValueLabel()
{
    idleTime().removeOnIdleListener(this);
}

void ValueLabel::mouseMoved(MouseEventInterface& event, MouseEventObservableInterface&)
{
    m_isInside = true;
    m_position = QPoint(event.x(), event.y());
    showValueAt(m_position);
}

void ValueLabel::buttonPressed(MouseEventInterface&, MouseEventObservableInterface&)
{
    m_isPressed = true;
    showNothing();
}

void ValueLabel::buttonReleased(MouseEventInterface&, MouseEventObservableInterface&)
{
    m_isPressed = false;
}

void ValueLabel::buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface& source)
{
    buttonPressed(event, source);
}

// What is under the pointer may have changed although it rests.
void ValueLabel::onIdle(OnIdleObservableInterface&)
{
    if (m_isInside)
        showValueAt(m_position);
}

bool ValueLabel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        m_isInside = false;
        showNothing();
    }
    return QLabel::eventFilter(watched, event);
}

void ValueLabel::showValueAt(const QPoint& position)
{
    double x = 0.0;
    double y = 0.0;
    QString value;
    if (!m_isPressed)
        value = QString::fromUtf8(VelUtilViewValueAt(position.x(), position.y(), &x, &y));
    if (value.isEmpty()) {
        showNothing();
        return;
    }
    VelUtilViewMark(x, y);
    setText(value);
}

void ValueLabel::showNothing()
{
    VelUtilViewUnmark();
    clear();
}

} // namespace viewer
