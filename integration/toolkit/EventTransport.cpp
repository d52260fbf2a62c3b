#include "integration/toolkit/EventTransport.h"

#include <QCursor>
#include <QEvent>
#if QT_VERSION >= 0x050000
#include <QEnterEvent>
#endif
#include <QWidget>

namespace velmora::sdk::integration::toolkit {

std::unique_ptr<QEvent> enterEvent(const QWidget& widget)
{
#if QT_VERSION >= 0x050000
    const QPoint global = QCursor::pos();
    return std::make_unique<QEnterEvent>(widget.mapFromGlobal(global), widget.window()->mapFromGlobal(global), global);
#else
    Q_UNUSED(widget)
    return std::make_unique<QEvent>(QEvent::Enter);
#endif
}

} // namespace velmora::sdk::integration::toolkit
