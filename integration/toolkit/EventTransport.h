#pragma once

#include <QEvent>
#include <memory>

class QObject;
class QWidget;

namespace velmora::sdk::integration::toolkit {

/// Whether an event for this receiver is only on its way: the toolkit's window object passes it on to
/// the widget that it is for, and the application's event filter sees it there again. Asked for every
/// event of the application: neither allocates nor locks.
///
/// Qt 4 delivers to widgets at once. Since Qt 5 what comes from the window system reaches the QWindow
/// behind a top-level widget first. A host's own QWindow (a Qt Quick window, for example) is taken for
/// transport too: what it receives is neither announced to the engine nor held back.
bool isOnlyTransport(const QObject* receiver);

/// The event that tells the widget that the pointer, where it is now, has come over it. Since Qt 5 it has a
/// class of its own.
std::unique_ptr<QEvent> enterEvent(const QWidget& widget);

/// The event that tells the widget that the pointer, where it is now, has begun (QEvent::HoverEnter) or ended
/// (QEvent::HoverLeave) to hover over it.
std::unique_ptr<QEvent> hoverEvent(QEvent::Type type, const QWidget& widget);

} // namespace velmora::sdk::integration::toolkit
