#include "integration/toolkit/GuiClient.h"

#include <QApplication>

namespace velmora::sdk::integration::toolkit {

#if QT_VERSION >= 0x050000

// Qt 5 has a class of its own for each kind of application instead of a type.
bool isGuiClient()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

#else

bool isGuiClient()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) && QApplication::type() == QApplication::GuiClient;
}

#endif

} // namespace velmora::sdk::integration::toolkit
