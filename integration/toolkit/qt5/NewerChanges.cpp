#include "integration/toolkit/NewerChanges.h"

namespace velmora::sdk::integration::toolkit {

bool isNewerChange(QEvent::Type type)
{
    return type == QEvent::ScreenChangeInternal || type == QEvent::ReadOnlyChange;
}

} // namespace velmora::sdk::integration::toolkit
