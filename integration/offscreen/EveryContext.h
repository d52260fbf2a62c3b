#pragma once

#include "integration/toolkit/CurrentContext.h"

#include <memory>

namespace velmora::sdk::integration::intern {

/// Releases whatever OpenGL context is current on the calling thread, the toolkit's or one that the host
/// has made with GLX or EGL itself. GLX and EGL refuse to make a context current over one of the other's,
/// and libGL takes one that it has not released for current for ever, also after OSMesa has drawn.
void releaseEveryContext();

/// Remembers the context that is current, of any maker, and makes it current again at the end of its
/// life; without one, none is current then. Neither that context nor what it draws to may be destroyed in
/// between. An OSMesa context is not kept: it is made current anew for each drawing.
class EveryContextKeeper {
public:
    EveryContextKeeper();
    ~EveryContextKeeper();
    EveryContextKeeper(const EveryContextKeeper&) = delete;
    EveryContextKeeper& operator=(const EveryContextKeeper&) = delete;

private:
    struct Kept;
    std::unique_ptr<Kept> m_kept;
    std::unique_ptr<toolkit::CurrentContextKeeper> m_toolkits;
};

} // namespace velmora::sdk::integration::intern
