#include "tests/offscreen/GLTable.h"

#include <GL/osmesa.h>

namespace velmora::test {

namespace {

template <typename Function>
void find(Function& function, const char* name)
{
    function = reinterpret_cast<Function>(OSMesaGetProcAddress(name));
}

GLTable findSoftwareGL()
{
    GLTable gl = screenGL();
    find(gl.clear, "glClear");
    find(gl.clearColor, "glClearColor");
    find(gl.clearDepth, "glClearDepth");
    find(gl.enable, "glEnable");
    find(gl.disable, "glDisable");
    find(gl.scissor, "glScissor");
    find(gl.viewport, "glViewport");
    find(gl.depthFunc, "glDepthFunc");
    find(gl.matrixMode, "glMatrixMode");
    find(gl.loadIdentity, "glLoadIdentity");
    find(gl.begin, "glBegin");
    find(gl.end, "glEnd");
    find(gl.color3ub, "glColor3ub");
    find(gl.vertex3f, "glVertex3f");
    find(gl.getIntegerv, "glGetIntegerv");
    find(gl.getError, "glGetError");
    find(gl.pixelStorei, "glPixelStorei");
    find(gl.finish, "glFinish");
    return gl;
}

} // namespace

const GLTable& screenGL()
{
    static const GLTable gl{::glClear,    ::glClearColor,  ::glClearDepth, ::glEnable,     ::glDisable,
                            ::glScissor,  ::glViewport,    ::glDepthFunc,  ::glMatrixMode, ::glLoadIdentity,
                            ::glBegin,    ::glEnd,         ::glColor3ub,   ::glVertex3f,   ::glGetIntegerv,
                            ::glGetError, ::glPixelStorei, ::glFinish};
    return gl;
}

const GLTable& softwareGL()
{
    static const GLTable gl = findSoftwareGL();
    return gl;
}

} // namespace velmora::test
