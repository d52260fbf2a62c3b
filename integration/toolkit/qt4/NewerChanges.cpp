#include "integration/toolkit/NewerChanges.h"

namespace velmora::sdk::integration::toolkit {

bool isNewerChange(QEvent::Type)
{
    return false;
}

} // namespace velmora::sdk::integration::toolkit
