#pragma once

#include "integration/glarea/MouseEvent.h"
#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/toolkit/InputEvents.h"
#include "integrationmanager/KeyEvent.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace velmora::sdk::integration::intern {

// The toolkit's events as the engine's records, said to come from `source`. Positions are in pixels
// of the screen from the corner of the receiver, y downwards: the toolkit's own where it does not scale.

inline MouseEvent recordOf(const QMouseEvent& event, MouseEventObservableInterface& source, const QObject& receiver)
{
    const QPoint position = toolkit::screenPosition(event, receiver);
    return MouseEvent(&source, ApplicationEventMonitor::mouseButton(event), position.x(), position.y(),
                      ApplicationEventMonitor::genericModifiersForEvent(event));
}

inline KeyEvent recordOf(const QKeyEvent& event, KeyEventObservableInterface& source)
{
    return KeyEvent(&source, event.key(), ApplicationEventMonitor::genericModifiersForEvent(event));
}

} // namespace velmora::sdk::integration::intern
