#include "OpenGL.h"

#include <array>

namespace conformance {
namespace {

struct Name {
    GLenum value;
    const char* text;
    int count = 1; ///< numbers
};

#define NAME(name)                                                                                                     \
    {                                                                                                                  \
        name, #name                                                                                                    \
    }
#define NAMES(name, count)                                                                                             \
    {                                                                                                                  \
        name, #name, count                                                                                             \
    }

constexpr Name Switches[] = {NAME(GL_ALPHA_TEST),
                             NAME(GL_BLEND),
                             NAME(GL_COLOR_LOGIC_OP),
                             NAME(GL_COLOR_MATERIAL),
                             NAME(GL_CULL_FACE),
                             NAME(GL_CLIP_PLANE0),
                             NAME(GL_DEPTH_CLAMP),
                             NAME(GL_DEPTH_TEST),
                             NAME(GL_DITHER),
                             NAME(GL_FOG),
                             NAME(GL_FRAMEBUFFER_SRGB),
                             NAME(GL_LIGHT0),
                             NAME(GL_LIGHT1),
                             NAME(GL_LIGHTING),
                             NAME(GL_LINE_SMOOTH),
                             NAME(GL_LINE_STIPPLE),
                             NAME(GL_MULTISAMPLE),
                             NAME(GL_NORMALIZE),
                             NAME(GL_POINT_SMOOTH),
                             NAME(GL_POINT_SPRITE),
                             NAME(GL_POLYGON_OFFSET_FILL),
                             NAME(GL_POLYGON_OFFSET_LINE),
                             NAME(GL_POLYGON_SMOOTH),
                             NAME(GL_POLYGON_STIPPLE),
                             NAME(GL_PRIMITIVE_RESTART),
                             NAME(GL_PROGRAM_POINT_SIZE),
                             NAME(GL_SAMPLE_ALPHA_TO_COVERAGE),
                             NAME(GL_SAMPLE_COVERAGE),
                             NAME(GL_SCISSOR_TEST),
                             NAME(GL_STENCIL_TEST),
                             NAME(GL_TEXTURE_2D),
                             NAME(GL_TEXTURE_CUBE_MAP_SEAMLESS),
                             NAME(GL_VERTEX_ARRAY),
                             NAME(GL_NORMAL_ARRAY),
                             NAME(GL_COLOR_ARRAY),
                             NAME(GL_TEXTURE_COORD_ARRAY)};

constexpr Name Integers[] = {NAME(GL_ACTIVE_TEXTURE),
                             NAME(GL_ARRAY_BUFFER_BINDING),
                             NAME(GL_ATTRIB_STACK_DEPTH),
                             NAME(GL_BLEND_DST_ALPHA),
                             NAME(GL_BLEND_DST_RGB),
                             NAME(GL_BLEND_EQUATION_ALPHA),
                             NAME(GL_BLEND_EQUATION_RGB),
                             NAME(GL_BLEND_SRC_ALPHA),
                             NAME(GL_BLEND_SRC_RGB),
                             NAME(GL_CLIENT_ATTRIB_STACK_DEPTH),
                             NAMES(GL_COLOR_WRITEMASK, 4),
                             NAME(GL_CULL_FACE_MODE),
                             NAME(GL_CURRENT_PROGRAM),
                             NAME(GL_DEPTH_FUNC),
                             NAME(GL_DEPTH_WRITEMASK),
                             NAME(GL_DRAW_BUFFER),
                             NAME(GL_DRAW_FRAMEBUFFER_BINDING),
                             NAME(GL_ELEMENT_ARRAY_BUFFER_BINDING),
                             NAME(GL_FRONT_FACE),
                             NAME(GL_LIGHT_MODEL_TWO_SIDE),
                             NAME(GL_MATRIX_MODE),
                             NAME(GL_MODELVIEW_STACK_DEPTH),
                             NAME(GL_PACK_ALIGNMENT),
                             NAME(GL_PACK_ROW_LENGTH),
                             NAME(GL_PIXEL_PACK_BUFFER_BINDING),
                             NAME(GL_PIXEL_UNPACK_BUFFER_BINDING),
                             NAMES(GL_POLYGON_MODE, 2),
                             NAME(GL_PROJECTION_STACK_DEPTH),
                             NAME(GL_READ_BUFFER),
                             NAME(GL_READ_FRAMEBUFFER_BINDING),
                             NAME(GL_RENDERBUFFER_BINDING),
                             NAMES(GL_SCISSOR_BOX, 4),
                             NAME(GL_SHADE_MODEL),
                             NAME(GL_STENCIL_FUNC),
                             NAME(GL_STENCIL_WRITEMASK),
                             NAME(GL_TEXTURE_BINDING_2D),
                             NAME(GL_UNIFORM_BUFFER_BINDING),
                             NAME(GL_UNPACK_ALIGNMENT),
                             NAME(GL_UNPACK_ROW_LENGTH),
                             NAME(GL_UNPACK_SKIP_PIXELS),
                             NAME(GL_UNPACK_SKIP_ROWS),
                             NAME(GL_VERTEX_ARRAY_BINDING),
                             NAMES(GL_VIEWPORT, 4)};

constexpr Name Reals[] = {NAMES(GL_COLOR_CLEAR_VALUE, 4),
                          NAMES(GL_CURRENT_COLOR, 4),
                          NAME(GL_DEPTH_CLEAR_VALUE),
                          NAMES(GL_DEPTH_RANGE, 2),
                          NAME(GL_LINE_WIDTH),
                          NAMES(GL_MODELVIEW_MATRIX, 16),
                          NAME(GL_POINT_SIZE),
                          NAME(GL_POLYGON_OFFSET_FACTOR),
                          NAME(GL_POLYGON_OFFSET_UNITS),
                          NAMES(GL_PROJECTION_MATRIX, 16),
                          NAMES(GL_TEXTURE_MATRIX, 16)};

constexpr int TextureUnits = 8;
constexpr GLuint VertexAttributes = 8;
// Names are given from 1 on, and given back ones again.
constexpr GLuint MostNames = 20000;

// A name that a library does not know leaves the values as they are, and an error.
void addValues(State& state, const Name& name, const std::array<GLdouble, 16>& values)
{
    for (int i = 0; i < name.count; ++i)
        state.emplace_back(name.text + (name.count > 1 ? "[" + std::to_string(i) + "]" : std::string()),
                           values[static_cast<std::size_t>(i)]);
}

void addTextures(State& state, const OpenGL& gl)
{
    const auto active = static_cast<GLenum>(gl.integer(GL_ACTIVE_TEXTURE));
    for (int unit = 0; unit < TextureUnits; ++unit) {
        gl.ActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
        state.emplace_back("texture of unit " + std::to_string(unit), gl.integer(GL_TEXTURE_BINDING_2D));
    }
    gl.ActiveTexture(active);
}

void addVertexAttributes(State& state, const OpenGL& gl)
{
    for (GLuint index = 0; index < VertexAttributes; ++index) {
        GLint enabled = 0;
        gl.GetVertexAttribiv(index, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &enabled);
        state.emplace_back("vertex attribute array " + std::to_string(index), enabled);
    }
}

template <typename Is>
void addObjects(State& state, const char* kind, const Is& is)
{
    int count = 0;
    for (GLuint name = 1; name < MostNames; ++name)
        count += is(name) ? 1 : 0;
    state.emplace_back(std::string("number of ") + kind, count);
}

std::string numberText(double value)
{
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

} // namespace

OpenGL::OpenGL(FindFunction find)
{
#define CONFORMANCE_FIND(name) this->name = reinterpret_cast<decltype(this->name)>(find("gl" #name));
    CONFORMANCE_GL(CONFORMANCE_FIND)
#undef CONFORMANCE_FIND
#define CONFORMANCE_FIND(name, type) this->name = reinterpret_cast<type>(find("gl" #name));
    CONFORMANCE_GL_NEWER(CONFORMANCE_FIND)
#undef CONFORMANCE_FIND
}

bool OpenGL::isComplete() const
{
    bool all = true;
#define CONFORMANCE_ASK(name) all = all && name;
    CONFORMANCE_GL(CONFORMANCE_ASK)
#undef CONFORMANCE_ASK
#define CONFORMANCE_ASK(name, type) all = all && name;
    CONFORMANCE_GL_NEWER(CONFORMANCE_ASK)
#undef CONFORMANCE_ASK
    return all;
}

GLint OpenGL::integer(GLenum what) const
{
    GLint values[16] = {};
    GetIntegerv(what, values);
    return values[0];
}

State stateOf(const OpenGL& gl)
{
    State state;
    state.emplace_back("glGetError()", gl.GetError());
    for (const Name& name : Switches)
        state.emplace_back(name.text, gl.IsEnabled(name.value));
    for (const Name& name : Integers) {
        GLint integers[16] = {};
        gl.GetIntegerv(name.value, integers);
        std::array<GLdouble, 16> values{};
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = integers[i];
        addValues(state, name, values);
    }
    for (const Name& name : Reals) {
        std::array<GLdouble, 16> values{};
        gl.GetDoublev(name.value, values.data());
        addValues(state, name, values);
    }
    addTextures(state, gl);
    addVertexAttributes(state, gl);
    addObjects(state, "textures", gl.IsTexture);
    addObjects(state, "display lists", gl.IsList);
    addObjects(state, "buffers", gl.IsBuffer);
    addObjects(state, "framebuffers", gl.IsFramebuffer);
    addObjects(state, "renderbuffers", gl.IsRenderbuffer);
    addObjects(state, "programs", gl.IsProgram);
    addObjects(state, "shaders", gl.IsShader);
    addObjects(state, "vertex arrays", gl.IsVertexArray);
    // Names that this library does not know are no fault of what is looked at.
    while (gl.GetError() != GL_NO_ERROR) {
    }
    return state;
}

std::string difference(const State& before, const State& after)
{
    std::string text;
    int more = -1;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i].second == after[i].second)
            continue;
        if (++more == 0)
            text = before[i].first + " is " + numberText(after[i].second) + " afterwards, " +
                   numberText(before[i].second) + " before";
    }
    return text + (more > 0 ? "; " + std::to_string(more) + " more values differ" : "");
}

} // namespace conformance
