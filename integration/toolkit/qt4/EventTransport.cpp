#include "integration/toolkit/EventTransport.h"

#include <QEvent>

namespace velmora::sdk::integration::toolkit {

bool isOnlyTransport(const QObject*)
{
    return false;
}

std::unique_ptr<QEvent> enterEvent(const QWidget&)
{
    return std::make_unique<QEvent>(QEvent::Enter);
}

} // namespace velmora::sdk::integration::toolkit
