#pragma once

#include <GL/gl.h>
#include <GL/glext.h>

namespace velmora::engine {

// The entry points, named without their "gl" (gl.Clear is glClear). These every OpenGL that the
// engine draws with has.
// clang-format off
#define VELMORA_GL_REQUIRED_FUNCTIONS(ENTRY) \
    ENTRY(ActiveTexture) ENTRY(AlphaFunc) ENTRY(Begin) ENTRY(BindTexture) ENTRY(BlendFunc) \
    ENTRY(Clear) ENTRY(ClearColor) ENTRY(ClearDepth) ENTRY(ClientActiveTexture) ENTRY(Color4ub) \
    ENTRY(ColorMask) ENTRY(ColorPointer) ENTRY(CullFace) ENTRY(DeleteTextures) ENTRY(DepthFunc) \
    ENTRY(DepthMask) ENTRY(DepthRange) ENTRY(Disable) ENTRY(DisableClientState) ENTRY(DrawElements) \
    ENTRY(Enable) ENTRY(EnableClientState) ENTRY(End) ENTRY(Finish) ENTRY(GenTextures) \
    ENTRY(GetDoublev) ENTRY(GetError) ENTRY(GetIntegerv) ENTRY(GetString) ENTRY(IsEnabled) \
    ENTRY(IsTexture) ENTRY(LightModelfv) ENTRY(LightModeli) ENTRY(Lightfv) ENTRY(LoadIdentity) \
    ENTRY(LoadMatrixd) ENTRY(Materialfv) ENTRY(MatrixMode) ENTRY(NormalPointer) ENTRY(Ortho) \
    ENTRY(PixelStorei) ENTRY(PolygonMode) ENTRY(PolygonOffset) ENTRY(PopAttrib) \
    ENTRY(PopClientAttrib) ENTRY(PopMatrix) ENTRY(PushAttrib) ENTRY(PushClientAttrib) \
    ENTRY(PushMatrix) ENTRY(ReadPixels) ENTRY(Rectf) ENTRY(Rotated) ENTRY(Scaled) ENTRY(Scissor) \
    ENTRY(ShadeModel) ENTRY(StencilFunc) ENTRY(TexCoord2f) ENTRY(TexCoordPointer) ENTRY(TexEnvi) \
    ENTRY(TexImage2D) ENTRY(TexParameteri) ENTRY(Translated) ENTRY(Vertex2f) ENTRY(VertexPointer) \
    ENTRY(Viewport)

// These are null when the OpenGL is older. Second: the pointer's type in <GL/glext.h>.
#define VELMORA_GL_OPTIONAL_FUNCTIONS(ENTRY) \
    ENTRY(BlendFuncSeparate, PFNGLBLENDFUNCSEPARATEPROC) \
    ENTRY(UseProgram, PFNGLUSEPROGRAMPROC) \
    ENTRY(BindVertexArray, PFNGLBINDVERTEXARRAYPROC) \
    ENTRY(GenBuffers, PFNGLGENBUFFERSPROC) \
    ENTRY(DeleteBuffers, PFNGLDELETEBUFFERSPROC) \
    ENTRY(BindBuffer, PFNGLBINDBUFFERPROC) \
    ENTRY(BufferData, PFNGLBUFFERDATAPROC) \
    ENTRY(IsBuffer, PFNGLISBUFFERPROC) \
    ENTRY(GenFramebuffers, PFNGLGENFRAMEBUFFERSPROC) \
    ENTRY(DeleteFramebuffers, PFNGLDELETEFRAMEBUFFERSPROC) \
    ENTRY(BindFramebuffer, PFNGLBINDFRAMEBUFFERPROC) \
    ENTRY(IsFramebuffer, PFNGLISFRAMEBUFFERPROC) \
    ENTRY(CheckFramebufferStatus, PFNGLCHECKFRAMEBUFFERSTATUSPROC) \
    ENTRY(FramebufferTexture2D, PFNGLFRAMEBUFFERTEXTURE2DPROC) \
    ENTRY(FramebufferRenderbuffer, PFNGLFRAMEBUFFERRENDERBUFFERPROC) \
    ENTRY(BlitFramebuffer, PFNGLBLITFRAMEBUFFERPROC) \
    ENTRY(GenRenderbuffers, PFNGLGENRENDERBUFFERSPROC) \
    ENTRY(DeleteRenderbuffers, PFNGLDELETERENDERBUFFERSPROC) \
    ENTRY(BindRenderbuffer, PFNGLBINDRENDERBUFFERPROC) \
    ENTRY(RenderbufferStorage, PFNGLRENDERBUFFERSTORAGEPROC) \
    ENTRY(RenderbufferStorageMultisample, PFNGLRENDERBUFFERSTORAGEMULTISAMPLEPROC) \
    ENTRY(FenceSync, PFNGLFENCESYNCPROC) \
    ENTRY(ClientWaitSync, PFNGLCLIENTWAITSYNCPROC) \
    ENTRY(DeleteSync, PFNGLDELETESYNCPROC)
// clang-format on

/// The entry points of one OpenGL library. The engine draws through such a table only, so that the
/// same drawing serves a window's context and a software one: both libraries define the same names.
struct GLFunctions {
#define VELMORA_GL_MEMBER(name) decltype(&::gl##name) name = nullptr; // NOLINT(bugprone-macro-parentheses): a name
    VELMORA_GL_REQUIRED_FUNCTIONS(VELMORA_GL_MEMBER)
#undef VELMORA_GL_MEMBER
#define VELMORA_GL_MEMBER(name, type) type name = nullptr;
    VELMORA_GL_OPTIONAL_FUNCTIONS(VELMORA_GL_MEMBER)
#undef VELMORA_GL_MEMBER

    /// Whether there are framebuffer objects with everything that belongs to them.
    bool hasFramebufferObjects() const;
    bool hasVertexBuffers() const
    {
        return GenBuffers && DeleteBuffers && BindBuffer && BufferData;
    }
    /// Returns when everything drawn so far is done. Unlike glFinish it does not hand the picture
    /// out, where OpenGL can do without: a software context copies its whole picture at each
    /// glFinish. Call Finish before a picture is read from such a context's memory.
    void waitUntilDrawn() const;
    /// Marks the end of what was drawn so far and lets it be drawn; null where OpenGL cannot mark it.
    GLsync startFence() const;
    /// Returns when all before the mark is done, and gives it back. Nothing for null.
    void endFence(GLsync fence) const;
};

/// The table for the context that is current on this thread. Without one, the table of libGL.
/// Throws velmora::ExceptionBase when the library lacks a required entry point.
const GLFunctions& currentGL();

} // namespace velmora::engine
