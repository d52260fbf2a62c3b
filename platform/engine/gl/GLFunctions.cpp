#include "engine/gl/GLFunctions.h"

#include "engine/gl/OpenGLLibraries.h"
#include "exception/ExceptionBase.h"

#include <map>
#include <string>

namespace velmora::engine {

namespace {

// Nanoseconds. Far more than a portion of a drawing takes; a hanging driver must not hang the engine.
constexpr GLuint64 LongestWait = 2000000000;

template <class Pointer>
void resolve(Pointer& pointer, GLResolver resolver, const char* name)
{
    pointer = reinterpret_cast<Pointer>(resolver(name));
}

template <class Pointer>
void require(Pointer& pointer, GLResolver resolver, const char* name)
{
    resolve(pointer, resolver, name);
    if (!pointer)
        throw ExceptionBase(std::string("The OpenGL library lacks ") + name + ". Install a complete OpenGL.", false);
}

GLFunctions tableFrom(GLResolver resolver)
{
    GLFunctions table;
#define VELMORA_GL_RESOLVE(name) require(table.name, resolver, "gl" #name);
    VELMORA_GL_REQUIRED_FUNCTIONS(VELMORA_GL_RESOLVE)
#undef VELMORA_GL_RESOLVE
#define VELMORA_GL_RESOLVE(name, type) resolve(table.name, resolver, "gl" #name);
    VELMORA_GL_OPTIONAL_FUNCTIONS(VELMORA_GL_RESOLVE)
#undef VELMORA_GL_RESOLVE
    return table;
}

} // namespace

bool GLFunctions::hasFramebufferObjects() const
{
    return GenFramebuffers && DeleteFramebuffers && BindFramebuffer && IsFramebuffer && CheckFramebufferStatus &&
           FramebufferTexture2D && FramebufferRenderbuffer && BlitFramebuffer && GenRenderbuffers &&
           DeleteRenderbuffers && BindRenderbuffer && RenderbufferStorage && RenderbufferStorageMultisample;
}

void GLFunctions::waitUntilDrawn() const
{
    const GLsync fence = startFence();
    if (fence)
        endFence(fence);
    else
        Finish();
}

GLsync GLFunctions::startFence() const
{
    if (!FenceSync || !ClientWaitSync || !DeleteSync)
        return nullptr;
    const GLsync fence = FenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0);
    // Not glFlush, at which a software context copies its whole picture, as at glFinish.
    ClientWaitSync(fence, GL_SYNC_FLUSH_COMMANDS_BIT, 0);
    return fence;
}

void GLFunctions::endFence(GLsync fence) const
{
    if (!fence)
        return;
    ClientWaitSync(fence, GL_SYNC_FLUSH_COMMANDS_BIT, LongestWait);
    DeleteSync(fence);
}

const GLFunctions& currentGL()
{
    static std::map<GLResolver, GLFunctions> tables;
    const GLResolver resolver = currentResolver();
    const auto known = tables.find(resolver);
    return known != tables.end() ? known->second : tables.emplace(resolver, tableFrom(resolver)).first->second;
}

} // namespace velmora::engine
