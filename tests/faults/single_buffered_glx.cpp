// Preloaded into a program, makes its display one whose OpenGL knows no double buffering: the visuals
// and configurations that have it are not there. It says so on standard error.

#include <algorithm>
#include <cstdio>
#include <dlfcn.h>

#include <GL/glx.h>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void tellHidden(long count)
{
    std::fprintf(stderr, "single_buffered_glx: %ld configurations hidden\n", count);
}

bool isDoubleBuffered(Display* display, GLXFBConfig config)
{
    int value = 0;
    return glXGetFBConfigAttrib(display, config, GLX_DOUBLEBUFFER, &value) == Success && value;
}

GLXFBConfig* withoutDoubleBuffered(Display* display, GLXFBConfig* configs, int* count)
{
    if (!configs)
        return configs;
    GLXFBConfig* const end = std::remove_if(
        configs, configs + *count, [display](GLXFBConfig config) { return isDoubleBuffered(display, config); });
    tellHidden(configs + *count - end);
    *count = static_cast<int>(end - configs);
    if (*count > 0)
        return configs;
    XFree(configs);
    return nullptr;
}

} // namespace

EXPORTED GLXFBConfig* glXChooseFBConfig(Display* display, int screen, const int* attributes, int* count)
{
    return withoutDoubleBuffered(
        display, next<decltype(&glXChooseFBConfig)>("glXChooseFBConfig")(display, screen, attributes, count), count);
}

EXPORTED GLXFBConfig* glXGetFBConfigs(Display* display, int screen, int* count)
{
    return withoutDoubleBuffered(display, next<decltype(&glXGetFBConfigs)>("glXGetFBConfigs")(display, screen, count),
                                 count);
}

EXPORTED int glXGetConfig(Display* display, XVisualInfo* visual, int attribute, int* value)
{
    const auto real = next<decltype(&glXGetConfig)>("glXGetConfig");
    int doubleBuffered = 0;
    const bool hidden = real(display, visual, GLX_DOUBLEBUFFER, &doubleBuffered) == Success && doubleBuffered;
    const int answer = real(display, visual, attribute, value);
    if (hidden && attribute == GLX_USE_GL)
        *value = 0;
    return answer;
}

EXPORTED XVisualInfo* glXChooseVisual(Display* display, int screen, int* attributes)
{
    XVisualInfo* const visual = next<decltype(&glXChooseVisual)>("glXChooseVisual")(display, screen, attributes);
    int doubleBuffered = 0;
    if (!visual || glXGetConfig(display, visual, GLX_DOUBLEBUFFER, &doubleBuffered) != Success || !doubleBuffered)
        return visual;
    tellHidden(1);
    XFree(visual);
    return nullptr;
}
