#include "benchmarks/engine/Swaps.h"

#include <dlfcn.h>

#include <GL/glx.h>

namespace velmora::benchmark {

namespace {

std::vector<Clock::time_point> g_swaps;

} // namespace

const std::vector<Clock::time_point>& swaps()
{
    return g_swaps;
}

} // namespace velmora::benchmark

extern "C" __attribute__((visibility("default"))) void glXSwapBuffers(Display* display, GLXDrawable drawable)
{
    using Function = void (*)(Display*, GLXDrawable);
    static const auto swapBuffers = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glXSwapBuffers"));
    swapBuffers(display, drawable);
    using namespace velmora::benchmark;
    g_swaps.push_back(Clock::now());
}
