#include "integration/toolkit/GuiClient.h"

#include "integration/toolkit/FramebufferLimit.h"

#include <QApplication>
#include <QSize>

namespace velmora::sdk::integration::toolkit {

namespace {

/// Two platforms show nothing anywhere. "offscreen" borrows the OpenGL of an X server where there is one,
/// and then everything can be drawn as if there were windows.
bool hasWindowSystem()
{
    const QString platform = QGuiApplication::platformName();
    const bool showsNothing = platform == QLatin1String("minimal") || platform == QLatin1String("offscreen");
    return !showsNothing || canDrawOffscreen(QSize(1, 1));
}

} // namespace

// There is a class for each kind of application instead of a type.
bool isGuiClient()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) && hasWindowSystem();
}

} // namespace velmora::sdk::integration::toolkit
