#include "tests/glarea/GlxRequests.h"

#include <GL/glx.h>
#include <dlfcn.h>

namespace velmora::test {

std::vector<GlxRequest> glxRequests;

namespace {

int refusals = 0;

GlxRequest read(const int* attributes)
{
    GlxRequest request;
    while (*attributes != None) {
        const int name = *attributes++;
        const bool isOnlyNamed = name == GLX_RGBA || name == GLX_DOUBLEBUFFER || name == GLX_STEREO;
        request[name] = isOnlyNamed ? 1 : *attributes++;
    }
    return request;
}

} // namespace

void beginGlxRequests(int refused)
{
    glxRequests.clear();
    refusals = refused;
}

} // namespace velmora::test

// In place of GLX's own, which it calls: writes the requests down and refuses as many as the test says.
extern "C" __attribute__((visibility("default"))) XVisualInfo* glXChooseVisual(Display* display, int screen,
                                                                               int* attributes)
{
    using Function = XVisualInfo* (*)(Display*, int, int*);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glXChooseVisual"));
    velmora::test::glxRequests.push_back(velmora::test::read(attributes));
    return velmora::test::refusals-- > 0 ? nullptr : original(display, screen, attributes);
}
