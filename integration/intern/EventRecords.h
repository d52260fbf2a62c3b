#pragma once

#include "integration/glarea/MouseEvent.h"
#include "integration/intern/ApplicationEventMonitor.h"
#include "integrationmanager/KeyEvent.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace velmora::sdk::integration::intern {

// The toolkit's events as the engine's records, said to come from `source`. Positions are pixels of
// the receiver, y downwards.

inline MouseEvent recordOf(const QMouseEvent& event, MouseEventObservableInterface& source)
{
    return MouseEvent(&source, ApplicationEventMonitor::mouseButton(event), event.pos().x(), event.pos().y(),
                      ApplicationEventMonitor::genericModifiersForEvent(event));
}

inline KeyEvent recordOf(const QKeyEvent& event, KeyEventObservableInterface& source)
{
    return KeyEvent(&source, event.key(), ApplicationEventMonitor::genericModifiersForEvent(event));
}

} // namespace velmora::sdk::integration::intern
