#include "benchmarks/engine/Swaps.h"

#include <dlfcn.h>

#include <GL/glx.h>

namespace velmora::benchmark {

namespace {

Swaps g_swaps;

} // namespace

const Swaps& swaps()
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
    ++g_swaps.count;
    g_swaps.last = Clock::now();
}
