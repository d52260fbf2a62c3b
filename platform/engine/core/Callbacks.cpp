#include "engine/core/Callbacks.h"

namespace velmora::engine {

Callbacks& callbacks()
{
    static Callbacks registered;
    return registered;
}

} // namespace velmora::engine
