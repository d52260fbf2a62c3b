#include "integration/toolkit/Exposure.h"

namespace velmora::sdk::integration::toolkit {

bool isReadyToSwap(const QWidget&)
{
    return true;
}

} // namespace velmora::sdk::integration::toolkit
