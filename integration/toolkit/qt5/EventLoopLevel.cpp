#include "integration/toolkit/EventLoopLevel.h"

#include <QThread>

namespace velmora::sdk::integration::toolkit {

int eventLoopLevel()
{
    return QThread::currentThread()->loopLevel();
}

} // namespace velmora::sdk::integration::toolkit
