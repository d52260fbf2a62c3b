#pragma once

#include <GL/gl.h>
#include <GL/glext.h>

namespace velmora::sdk::integration::intern {

// The entry points named without their "gl".
// clang-format off
#define VELMORA_READING_GL_1_FUNCTIONS(ENTRY) \
    ENTRY(Disable) ENTRY(Enable) ENTRY(Finish) ENTRY(GetError) ENTRY(GetIntegerv) ENTRY(GetString) \
    ENTRY(IsEnabled) ENTRY(PixelStorei) ENTRY(PixelTransferf) ENTRY(PixelTransferi) ENTRY(PopAttrib) \
    ENTRY(PopClientAttrib) ENTRY(PushAttrib) ENTRY(PushClientAttrib) ENTRY(ReadPixels) ENTRY(Viewport)
// Second: the pointer's type in <GL/glext.h>. Null where the OpenGL has none.
#define VELMORA_READING_GL_LATER_FUNCTIONS(ENTRY) \
    ENTRY(BindBuffer, PFNGLBINDBUFFERPROC) \
    ENTRY(BindFramebuffer, PFNGLBINDFRAMEBUFFERPROC) \
    ENTRY(BindRenderbuffer, PFNGLBINDRENDERBUFFERPROC) \
    ENTRY(BlitFramebuffer, PFNGLBLITFRAMEBUFFERPROC) \
    ENTRY(CheckFramebufferStatus, PFNGLCHECKFRAMEBUFFERSTATUSPROC) \
    ENTRY(DeleteFramebuffers, PFNGLDELETEFRAMEBUFFERSPROC) \
    ENTRY(DeleteRenderbuffers, PFNGLDELETERENDERBUFFERSPROC) \
    ENTRY(FramebufferRenderbuffer, PFNGLFRAMEBUFFERRENDERBUFFERPROC) \
    ENTRY(GenFramebuffers, PFNGLGENFRAMEBUFFERSPROC) \
    ENTRY(GenRenderbuffers, PFNGLGENRENDERBUFFERSPROC) \
    ENTRY(RenderbufferStorage, PFNGLRENDERBUFFERSTORAGEPROC) \
    ENTRY(RenderbufferStorageMultisample, PFNGLRENDERBUFFERSTORAGEMULTISAMPLEPROC)
// clang-format on

/// What making an image's framebuffer and reading it back take of the OpenGL library whose context is
/// current: GLX, EGL and OSMesa each have their own.
struct ReadingGL {
    using EntryPoint = void (*)();
    using Resolver = EntryPoint (*)(const char* name);

    /// While a context of the resolver's library is current.
    explicit ReadingGL(Resolver resolver);

#define VELMORA_GL_MEMBER(name) decltype(&::gl##name) name; // NOLINT(bugprone-macro-parentheses): a name
    VELMORA_READING_GL_1_FUNCTIONS(VELMORA_GL_MEMBER)
#undef VELMORA_GL_MEMBER
#define VELMORA_GL_MEMBER(name, type) type name;
    VELMORA_READING_GL_LATER_FUNCTIONS(VELMORA_GL_MEMBER)
#undef VELMORA_GL_MEMBER

    /// Whether the library has all that drawing into framebuffer objects and reading them takes.
    bool hasFramebufferObjects() const;
    bool hasExtension(const char* name) const;
    GLint integer(GLenum name) const;

    /// Forgets errors that others have left. Bounded, because a lost context reports an error for ever.
    void forgetErrors() const;
    /// Whether the context answers at all: one that is lost, or in which somebody has left a glBegin open,
    /// neither answers nor always reports an error.
    bool answers() const;
    /// Whether everything since forgetErrors() was done.
    bool succeeded() const
    {
        return answers() && GetError() == GL_NO_ERROR;
    }
};

} // namespace velmora::sdk::integration::intern
