#include "tests/offscreen/RefusedContexts.h"

#include <GL/glx.h>
#include <dlfcn.h>

namespace velmora::test {
namespace {

bool refusing = false;
int refused = 0;

bool refuses(GLXContext context)
{
    if (refusing && context)
        ++refused;
    return refusing && context;
}

} // namespace

RefusedContexts::RefusedContexts()
{
    refusing = true;
}

RefusedContexts::~RefusedContexts()
{
    refusing = false;
}

int RefusedContexts::count()
{
    return refused;
}

} // namespace velmora::test

// The program's own functions are found before the library's, by the toolkit as well.

extern "C" __attribute__((visibility("default"))) Bool glXMakeCurrent(Display* display, GLXDrawable drawable,
                                                                      GLXContext context)
{
    static const auto real = reinterpret_cast<decltype(&glXMakeCurrent)>(dlsym(RTLD_NEXT, "glXMakeCurrent"));
    return velmora::test::refuses(context) ? False : real(display, drawable, context);
}

extern "C" __attribute__((visibility("default"))) Bool glXMakeContextCurrent(Display* display, GLXDrawable draw,
                                                                             GLXDrawable read, GLXContext context)
{
    static const auto real =
        reinterpret_cast<decltype(&glXMakeContextCurrent)>(dlsym(RTLD_NEXT, "glXMakeContextCurrent"));
    return velmora::test::refuses(context) ? False : real(display, draw, read, context);
}
