#define GL_GLEXT_PROTOTYPES

#include "tests/offscreen/GLTable.h"

#include "integration/opengl/EglLibrary.h"
#include "integration/opengl/OSMesaLibrary.h"

namespace velmora::test {

namespace {

using EntryPoint = void (*)();
using Resolver = EntryPoint (*)(const char* name);

template <typename Function>
void find(Function& function, EntryPoint entryPoint)
{
    function = reinterpret_cast<Function>(entryPoint);
}

GLTable tableFrom(Resolver resolver)
{
    GLTable gl = screenGL();
    find(gl.clear, resolver("glClear"));
    find(gl.clearColor, resolver("glClearColor"));
    find(gl.clearDepth, resolver("glClearDepth"));
    find(gl.enable, resolver("glEnable"));
    find(gl.disable, resolver("glDisable"));
    find(gl.scissor, resolver("glScissor"));
    find(gl.viewport, resolver("glViewport"));
    find(gl.depthFunc, resolver("glDepthFunc"));
    find(gl.matrixMode, resolver("glMatrixMode"));
    find(gl.loadIdentity, resolver("glLoadIdentity"));
    find(gl.begin, resolver("glBegin"));
    find(gl.end, resolver("glEnd"));
    find(gl.color3ub, resolver("glColor3ub"));
    find(gl.vertex3f, resolver("glVertex3f"));
    find(gl.getIntegerv, resolver("glGetIntegerv"));
    find(gl.getError, resolver("glGetError"));
    find(gl.pixelStorei, resolver("glPixelStorei"));
    find(gl.finish, resolver("glFinish"));
    find(gl.readBuffer, resolver("glReadBuffer"));
    find(gl.pixelTransferf, resolver("glPixelTransferf"));
    find(gl.bindFramebuffer, resolver("glBindFramebuffer"));
    return gl;
}

} // namespace

const GLTable& screenGL()
{
    static const GLTable gl{::glClear,          ::glClearColor,  ::glClearDepth, ::glEnable,     ::glDisable,
                            ::glScissor,        ::glViewport,    ::glDepthFunc,  ::glMatrixMode, ::glLoadIdentity,
                            ::glBegin,          ::glEnd,         ::glColor3ub,   ::glVertex3f,   ::glGetIntegerv,
                            ::glGetError,       ::glPixelStorei, ::glFinish,     ::glReadBuffer, ::glPixelTransferf,
                            ::glBindFramebuffer};
    return gl;
}

const GLTable& softwareGL()
{
    static const GLTable gl =
        tableFrom([](const char* name) { return sdk::integration::intern::osMesa()->getProcAddress(name); });
    return gl;
}

const GLTable& eglGL()
{
    static const GLTable gl =
        tableFrom([](const char* name) { return sdk::integration::intern::egl()->GetProcAddress(name); });
    return gl;
}

} // namespace velmora::test
