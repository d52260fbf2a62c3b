#pragma once

#include <QObject>

namespace velmora::sdk::integration::toolkit {

/// Whether an event for this receiver is only on its way: the toolkit's window object passes it on to
/// the widget that it is for, and the application's event filter sees it there again. Asked for every
/// event of the application, so it is inline and neither allocates nor locks.
///
/// Since Qt 5 what comes from the window system reaches the QWindow behind a top-level widget first.
/// A host's own QWindow (a Qt Quick window, for example) is taken for transport too: what it receives
/// is neither announced to the engine nor held back.
inline bool isOnlyTransport(const QObject* receiver)
{
    return receiver->isWindowType();
}

} // namespace velmora::sdk::integration::toolkit
