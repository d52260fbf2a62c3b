#pragma once

#include <GL/gl.h>
#include <GL/glext.h>

#include <string>
#include <utility>
#include <vector>

namespace conformance {

using FindFunction = void (*(*)(const char* name))();

// What the checks call, without "gl".
// clang-format off
#define CONFORMANCE_GL(ENTRY) \
    ENTRY(Clear) ENTRY(ClearColor) ENTRY(ClearDepth) ENTRY(ColorMask) ENTRY(DepthMask) ENTRY(Disable) ENTRY(Finish) \
    ENTRY(GetDoublev) ENTRY(GetError) ENTRY(GetIntegerv) ENTRY(IsEnabled) ENTRY(IsList) ENTRY(IsTexture) \
    ENTRY(PixelStorei) ENTRY(PopAttrib) ENTRY(PopClientAttrib) ENTRY(PushAttrib) ENTRY(PushClientAttrib) \
    ENTRY(ReadPixels) ENTRY(Viewport)
#define CONFORMANCE_GL_NEWER(ENTRY) \
    ENTRY(ActiveTexture, PFNGLACTIVETEXTUREPROC) \
    ENTRY(BindFramebuffer, PFNGLBINDFRAMEBUFFERPROC) \
    ENTRY(BindRenderbuffer, PFNGLBINDRENDERBUFFERPROC) \
    ENTRY(CheckFramebufferStatus, PFNGLCHECKFRAMEBUFFERSTATUSPROC) \
    ENTRY(DeleteFramebuffers, PFNGLDELETEFRAMEBUFFERSPROC) \
    ENTRY(DeleteRenderbuffers, PFNGLDELETERENDERBUFFERSPROC) \
    ENTRY(FramebufferRenderbuffer, PFNGLFRAMEBUFFERRENDERBUFFERPROC) \
    ENTRY(GenFramebuffers, PFNGLGENFRAMEBUFFERSPROC) \
    ENTRY(GenRenderbuffers, PFNGLGENRENDERBUFFERSPROC) \
    ENTRY(GetVertexAttribiv, PFNGLGETVERTEXATTRIBIVPROC) \
    ENTRY(IsBuffer, PFNGLISBUFFERPROC) \
    ENTRY(IsFramebuffer, PFNGLISFRAMEBUFFERPROC) \
    ENTRY(IsProgram, PFNGLISPROGRAMPROC) \
    ENTRY(IsRenderbuffer, PFNGLISRENDERBUFFERPROC) \
    ENTRY(IsShader, PFNGLISSHADERPROC) \
    ENTRY(IsVertexArray, PFNGLISVERTEXARRAYPROC) \
    ENTRY(RenderbufferStorage, PFNGLRENDERBUFFERSTORAGEPROC)
// clang-format on

/// The functions of the OpenGL library whose context is current.
struct OpenGL {
#define CONFORMANCE_MEMBER(name) decltype(&::gl##name) name = nullptr; // NOLINT(bugprone-macro-parentheses): a name
    CONFORMANCE_GL(CONFORMANCE_MEMBER)
#undef CONFORMANCE_MEMBER
#define CONFORMANCE_MEMBER(name, type) type name = nullptr;
    CONFORMANCE_GL_NEWER(CONFORMANCE_MEMBER)
#undef CONFORMANCE_MEMBER

    explicit OpenGL(FindFunction find);
    /// Everything is there.
    bool isComplete() const;
    GLint integer(GLenum what) const;
};

/// What a drawing could leave changed or behind: values of the context's state by name, and how many objects of each
/// kind there are.
using State = std::vector<std::pair<std::string, double>>;

State stateOf(const OpenGL& gl);
/// The first of what differs, in words, and how many more; "" when nothing does.
std::string difference(const State& before, const State& after);

} // namespace conformance
