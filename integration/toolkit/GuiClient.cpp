#include "integration/toolkit/GuiClient.h"

#include "integration/toolkit/FramebufferLimit.h"

#include <QApplication>
#include <QSize>

namespace velmora::sdk::integration::toolkit {

#if QT_VERSION >= 0x050000

namespace {

/// Two platforms of Qt 5 show nothing anywhere. "offscreen" borrows the OpenGL of an X server where
/// there is one, and then everything can be drawn as if there were windows.
bool hasWindowSystem()
{
    const QString platform = QGuiApplication::platformName();
    const bool showsNothing = platform == QLatin1String("minimal") || platform == QLatin1String("offscreen");
    return !showsNothing || canDrawOffscreen(QSize(1, 1));
}

} // namespace

// Qt 5 has a class of its own for each kind of application instead of a type.
bool isGuiClient()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) && hasWindowSystem();
}

#else

bool isGuiClient()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) && QApplication::type() == QApplication::GuiClient;
}

#endif

} // namespace velmora::sdk::integration::toolkit
