#pragma once

#include <QGuiApplication>

namespace velmora::sdk::integration::toolkit {

/// Whether the application's windows are those of a native Wayland client.
inline bool isWaylandClient()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace velmora::sdk::integration::toolkit
