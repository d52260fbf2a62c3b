#include "integration/opengl/ReadingGL.h"

#include <cstring>

namespace velmora::sdk::integration::intern {

namespace {

template <typename Pointer>
void resolve(Pointer& pointer, ReadingGL::Resolver resolver, const char* name)
{
    pointer = reinterpret_cast<Pointer>(resolver(name));
}

} // namespace

ReadingGL::ReadingGL(Resolver resolver)
{
#define VELMORA_GL_RESOLVE(name) resolve(name, resolver, "gl" #name);
    VELMORA_READING_GL_1_FUNCTIONS(VELMORA_GL_RESOLVE)
#undef VELMORA_GL_RESOLVE
#define VELMORA_GL_RESOLVE(name, type) resolve(name, resolver, "gl" #name);
    VELMORA_READING_GL_LATER_FUNCTIONS(VELMORA_GL_RESOLVE)
#undef VELMORA_GL_RESOLVE
}

bool ReadingGL::hasFramebufferObjects() const
{
    return GetIntegerv && ReadPixels && BindFramebuffer && BindRenderbuffer && BlitFramebuffer &&
           CheckFramebufferStatus && DeleteFramebuffers && DeleteRenderbuffers && FramebufferRenderbuffer &&
           GenFramebuffers && GenRenderbuffers && RenderbufferStorage && RenderbufferStorageMultisample;
}

bool ReadingGL::hasExtension(const char* name) const
{
    const auto* const extensions = reinterpret_cast<const char*>(GetString(GL_EXTENSIONS));
    return extensions && std::strstr(extensions, name);
}

GLint ReadingGL::integer(GLenum name) const
{
    GLint value = 0;
    GetIntegerv(name, &value);
    return value;
}

void ReadingGL::forgetErrors() const
{
    constexpr int MostErrors = 16;
    for (int i = 0; i < MostErrors && GetError() != GL_NO_ERROR; ++i)
        continue;
}

bool ReadingGL::answers() const
{
    constexpr GLint NoAnswer = -1;
    GLint value = NoAnswer;
    GetIntegerv(GL_PACK_ALIGNMENT, &value);
    return value != NoAnswer;
}

} // namespace velmora::sdk::integration::intern
