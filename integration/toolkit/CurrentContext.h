#pragma once

#include <memory>

namespace velmora::sdk::integration::toolkit {

/// Releases whatever OpenGL context of the toolkit is current on the calling thread, so that
/// another OpenGL library can take the thread over. OSMesa shares the driver's per-thread state with
/// libGL: a toolkit context that stays current while OSMesa draws is never made current again,
/// because libGL believes that it still is.
void releaseCurrentContext();

/// An OpenGL function that the current context of the toolkit has, or null. There must be such a context.
void (*currentFunction(const char* name))();

/// Remembers the toolkit context that is current, and makes it current again at the end of its life.
/// Neither that context nor what it draws to may be destroyed in between.
class CurrentContextKeeper {
public:
    CurrentContextKeeper();
    ~CurrentContextKeeper();
    CurrentContextKeeper(const CurrentContextKeeper&) = delete;
    CurrentContextKeeper& operator=(const CurrentContextKeeper&) = delete;

private:
    struct Kept;
    std::unique_ptr<Kept> m_kept;
};

} // namespace velmora::sdk::integration::toolkit
