#pragma once

class QObject;

namespace velmora::sdk::integration::toolkit {

/// Whether an event for this receiver is only on its way to the widget that it is for. Asked for every
/// event of the application, so it is inline. Never on Qt 4, which delivers to widgets at once.
inline bool isOnlyTransport(const QObject*)
{
    return false;
}

} // namespace velmora::sdk::integration::toolkit
