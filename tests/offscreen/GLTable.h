#pragma once

#include <GL/gl.h>

namespace velmora::test {

/// The OpenGL calls that the tests draw with, of one of the libraries that have them.
struct GLTable {
    decltype(&::glClear) clear;
    decltype(&::glClearColor) clearColor;
    decltype(&::glClearDepth) clearDepth;
    decltype(&::glEnable) enable;
    decltype(&::glDisable) disable;
    decltype(&::glScissor) scissor;
    decltype(&::glViewport) viewport;
    decltype(&::glDepthFunc) depthFunc;
    decltype(&::glMatrixMode) matrixMode;
    decltype(&::glLoadIdentity) loadIdentity;
    decltype(&::glBegin) begin;
    decltype(&::glEnd) end;
    decltype(&::glColor3ub) color3ub;
    decltype(&::glVertex3f) vertex3f;
    decltype(&::glGetIntegerv) getIntegerv;
    decltype(&::glGetError) getError;
    decltype(&::glPixelStorei) pixelStorei;
    decltype(&::glFinish) finish;
    decltype(&::glReadBuffer) readBuffer;
    decltype(&::glPixelTransferf) pixelTransferf;
    void (*bindFramebuffer)(GLenum target, GLuint framebuffer);

    int integer(GLenum name) const
    {
        GLint value = -1;
        getIntegerv(name, &value);
        return value;
    }
};

/// For the toolkit's contexts.
const GLTable& screenGL();
/// For OSMesa's, where it is installed.
const GLTable& softwareGL();
/// For EGL's.
const GLTable& eglGL();

} // namespace velmora::test
