#include "integration/toolkit/GuiClient.h"

#include <QApplication>

namespace velmora::sdk::integration::toolkit {

bool isGuiClient()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) && QApplication::type() == QApplication::GuiClient;
}

} // namespace velmora::sdk::integration::toolkit
