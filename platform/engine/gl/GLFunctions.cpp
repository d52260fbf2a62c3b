#include "engine/gl/GLFunctions.h"

#include "exception/ExceptionBase.h"

#include <GL/glx.h>
#include <GL/osmesa.h>

#include <string>

namespace velmora::engine {

namespace {

using EntryPoint = void (*)();
using Resolver = EntryPoint (*)(const char* name);

// Nanoseconds. Far more than a portion of a drawing takes; a hanging driver must not hang the engine.
constexpr GLuint64 longestWait = 2000000000;

EntryPoint libGLEntryPoint(const char* name)
{
    return glXGetProcAddress(reinterpret_cast<const GLubyte*>(name));
}

EntryPoint mesaEntryPoint(const char* name)
{
    return OSMesaGetProcAddress(name);
}

template <class Pointer>
void resolve(Pointer& pointer, Resolver resolver, const char* name)
{
    pointer = reinterpret_cast<Pointer>(resolver(name));
}

template <class Pointer>
void require(Pointer& pointer, Resolver resolver, const char* name)
{
    resolve(pointer, resolver, name);
    if (!pointer)
        throw ExceptionBase(std::string("The OpenGL library lacks ") + name + ". Install a complete OpenGL.", false);
}

GLFunctions tableFrom(Resolver resolver)
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

const GLFunctions& libGLTable()
{
    static const GLFunctions table = tableFrom(libGLEntryPoint);
    return table;
}

const GLFunctions& mesaTable()
{
    static const GLFunctions table = tableFrom(mesaEntryPoint);
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
    Flush();
    return fence;
}

void GLFunctions::endFence(GLsync fence) const
{
    if (!fence)
        return;
    ClientWaitSync(fence, GL_SYNC_FLUSH_COMMANDS_BIT, longestWait);
    DeleteSync(fence);
}

// libGL is asked first: the software library keeps its own idea of a current context also after
// libGL has taken the thread's dispatch back, while libGL's is released before the other's is made
// current.
const GLFunctions& currentGL()
{
    if (!glXGetCurrentContext() && OSMesaGetCurrentContext())
        return mesaTable();
    return libGLTable();
}

} // namespace velmora::engine
