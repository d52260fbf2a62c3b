#include "integration/toolkit/EventTransport.h"

#include <QCursor>
#include <QEnterEvent>
#include <QWidget>

namespace velmora::sdk::integration::toolkit {

bool isOnlyTransport(const QObject* receiver)
{
    return receiver->isWindowType();
}

std::unique_ptr<QEvent> enterEvent(const QWidget& widget)
{
    const QPoint global = QCursor::pos();
    return std::make_unique<QEnterEvent>(widget.mapFromGlobal(global), widget.window()->mapFromGlobal(global), global);
}

} // namespace velmora::sdk::integration::toolkit
