#include "tests/vtk/OpenGLState.h"

#include <array>
#include <sstream>

#include <GL/gl.h>
#include <GL/glext.h>

namespace velmora::test::model {
namespace {

struct Value {
    const char* name;
    GLenum code;
};
#define VALUE(name)                                                                                                    \
    {                                                                                                                  \
#name, name                                                                                                    \
    }

constexpr Value Values[] = {
    VALUE(GL_ACTIVE_TEXTURE),
    VALUE(GL_ALPHA_TEST),
    VALUE(GL_ARRAY_BUFFER_BINDING),
    VALUE(GL_ATTRIB_STACK_DEPTH),
    VALUE(GL_BLEND),
    VALUE(GL_BLEND_DST_ALPHA),
    VALUE(GL_BLEND_DST_RGB),
    VALUE(GL_BLEND_EQUATION_RGB),
    VALUE(GL_BLEND_SRC_ALPHA),
    VALUE(GL_BLEND_SRC_RGB),
    VALUE(GL_CLIENT_ATTRIB_STACK_DEPTH),
    VALUE(GL_COLOR_CLEAR_VALUE),
    VALUE(GL_COLOR_WRITEMASK),
    VALUE(GL_CULL_FACE),
    VALUE(GL_CURRENT_COLOR),
    VALUE(GL_CURRENT_PROGRAM),
    VALUE(GL_DEPTH_CLEAR_VALUE),
    VALUE(GL_DEPTH_FUNC),
    VALUE(GL_DEPTH_TEST),
    VALUE(GL_DEPTH_WRITEMASK),
    VALUE(GL_DRAW_BUFFER),
    VALUE(GL_DRAW_FRAMEBUFFER_BINDING),
    VALUE(GL_ELEMENT_ARRAY_BUFFER_BINDING),
    VALUE(GL_LIGHTING),
    VALUE(GL_LINE_WIDTH),
    VALUE(GL_MATRIX_MODE),
    VALUE(GL_MODELVIEW_MATRIX),
    VALUE(GL_MULTISAMPLE),
    VALUE(GL_PACK_ALIGNMENT),
    VALUE(GL_PIXEL_UNPACK_BUFFER_BINDING),
    VALUE(GL_POINT_SIZE),
    VALUE(GL_POLYGON_MODE),
    VALUE(GL_POLYGON_OFFSET_FILL),
    VALUE(GL_PROGRAM_POINT_SIZE),
    VALUE(GL_PROJECTION_MATRIX),
    VALUE(GL_READ_BUFFER),
    VALUE(GL_READ_FRAMEBUFFER_BINDING),
    VALUE(GL_RENDERBUFFER_BINDING),
    VALUE(GL_SCISSOR_BOX),
    VALUE(GL_SCISSOR_TEST),
    VALUE(GL_STENCIL_TEST),
    VALUE(GL_TEXTURE_2D),
    VALUE(GL_TEXTURE_BINDING_1D),
    VALUE(GL_TEXTURE_BINDING_2D),
    VALUE(GL_TEXTURE_BINDING_BUFFER),
    VALUE(GL_TEXTURE_BUFFER),
    VALUE(GL_TEXTURE_CUBE_MAP_SEAMLESS),
    VALUE(GL_UNIFORM_BUFFER_BINDING),
    VALUE(GL_UNPACK_ALIGNMENT),
    VALUE(GL_UNPACK_ROW_LENGTH),
    VALUE(GL_VERTEX_ARRAY_BINDING),
    VALUE(GL_VIEWPORT),
};

} // namespace

std::map<std::string, std::string> openGLState()
{
    std::map<std::string, std::string> state;
    for (const Value& value : Values) {
        std::array<GLdouble, 16> numbers{};
        glGetDoublev(value.code, numbers.data());
        std::ostringstream text;
        for (const GLdouble number : numbers)
            text << number << ' ';
        state[value.name] = text.str();
    }
    while (glGetError() != GL_NO_ERROR) {
    }
    return state;
}

} // namespace velmora::test::model
