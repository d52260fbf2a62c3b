#pragma once

#include <GL/gl.h>

namespace velmora::test {

/// The OpenGL calls that the tests draw with, of one of the two libraries that have them.
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

    int integer(GLenum name) const
    {
        GLint value = -1;
        getIntegerv(name, &value);
        return value;
    }
};

/// For the toolkit's contexts.
const GLTable& screenGL();
/// For OSMesa's.
const GLTable& softwareGL();

} // namespace velmora::test
