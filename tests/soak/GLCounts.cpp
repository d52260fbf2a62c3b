#include "tests/soak/GLCounts.h"

#include "integration/opengl/EglLibrary.h"
#include "integration/opengl/OSMesaLibrary.h"

#include <dlfcn.h>
#include <memory>
#include <mutex>
#include <set>
#include <utility>

#define GL_GLEXT_PROTOTYPES
#define GLX_GLXEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/glx.h>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace velmora::test {
namespace {

enum Kind {
    Textures,
    Buffers,
    Framebuffers,
    Renderbuffers,
    VertexArrays,
    Queries,
    Lists,
    Shaders,
    Programs,
    KindCount
};
const char* const kindNames[KindCount] = {"textures", "buffers", "framebuffers", "renderbuffers", "vertex_arrays",
                                          "queries",  "lists",   "shaders",      "programs"};

/// What contexts that share with each other have created.
using Objects = std::set<std::pair<int, GLuint>>;

struct State {
    std::mutex mutex;
    std::map<const void*, std::shared_ptr<Objects>> contexts;
};

State& state()
{
    static State everything;
    return everything;
}

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// Of a library that the process loads when it needs it.
template <typename Function>
Function real(const char* library, const char* name)
{
    return reinterpret_cast<Function>(dlsym(dlopen(library, RTLD_LAZY), name));
}
constexpr const char* Egl = "libEGL.so.1";
constexpr const char* OSMesa = "libOSMesa.so.8";

const void* currentContext()
{
    if (const void* const context = glXGetCurrentContext())
        return context;
    if (const auto* const library = sdk::integration::intern::loadedEgl())
        if (const void* const context = library->GetCurrentContext())
            return context;
    void* const mesa = dlopen(OSMesa, RTLD_LAZY | RTLD_NOLOAD);
    return mesa ? reinterpret_cast<void* (*)()>(dlsym(mesa, "OSMesaGetCurrentContext"))() : nullptr;
}

template <typename Context>
Context created(Context context, const void* sharing)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    const auto shared = state().contexts.find(sharing);
    if (context)
        state().contexts[context] = shared == state().contexts.end() ? std::make_shared<Objects>() : shared->second;
    return context;
}

void destroyed(const void* context)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().contexts.erase(context);
}

void note(int kind, GLuint name, bool exists)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    const auto found = state().contexts.find(currentContext());
    if (found == state().contexts.end() || name == 0)
        return;
    if (exists)
        found->second->emplace(kind, name);
    else
        found->second->erase({kind, name});
}

// Counting entry points, for each library its own: they call what that library gave for the name.

enum Library { LibGL, EglOfLibGL, Mesa, LibraryCount };
using EntryPoint = void (*)();

template <int kind, int library>
struct Counting {
    static inline void (*realGen)(GLsizei, GLuint*) = nullptr;
    static inline void (*realDelete)(GLsizei, const GLuint*) = nullptr;
    static inline GLuint (*realCreate)() = nullptr;
    static inline GLuint (*realCreateOf)(GLenum) = nullptr;
    static inline void (*realDeleteOne)(GLuint) = nullptr;
    static inline GLuint (*realGenRange)(GLsizei) = nullptr;
    static inline void (*realDeleteRange)(GLuint, GLsizei) = nullptr;

    static void gen(GLsizei count, GLuint* names)
    {
        realGen(count, names);
        for (GLsizei i = 0; i < count; ++i)
            note(kind, names[i], true);
    }
    static void del(GLsizei count, const GLuint* names)
    {
        for (GLsizei i = 0; i < count; ++i)
            note(kind, names[i], false);
        realDelete(count, names);
    }
    static GLuint create()
    {
        const GLuint name = realCreate();
        note(kind, name, true);
        return name;
    }
    static GLuint createOf(GLenum type)
    {
        const GLuint name = realCreateOf(type);
        note(kind, name, true);
        return name;
    }
    static void deleteOne(GLuint name)
    {
        note(kind, name, false);
        realDeleteOne(name);
    }
    static GLuint genRange(GLsizei count)
    {
        const GLuint first = realGenRange(count);
        for (GLsizei i = 0; first != 0 && i < count; ++i)
            note(kind, first + static_cast<GLuint>(i), true);
        return first;
    }
    static void deleteRange(GLuint first, GLsizei count)
    {
        for (GLsizei i = 0; i < count; ++i)
            note(kind, first + static_cast<GLuint>(i), false);
        realDeleteRange(first, count);
    }
};

struct Replacement {
    const char* name;
    EntryPoint counting;
    EntryPoint* real;
};

template <typename Function>
Replacement replacement(const char* name, Function counting, Function& real)
{
    return {name, reinterpret_cast<EntryPoint>(counting), reinterpret_cast<EntryPoint*>(&real)};
}

template <int kind, int library>
void addPair(std::map<std::string, Replacement>& to, const char* genName, const char* deleteName)
{
    using Of = Counting<kind, library>;
    to[genName] = replacement(genName, &Of::gen, Of::realGen);
    to[deleteName] = replacement(deleteName, &Of::del, Of::realDelete);
}

template <int library>
std::map<std::string, Replacement> replacements()
{
    std::map<std::string, Replacement> all;
    addPair<Textures, library>(all, "glGenTextures", "glDeleteTextures");
    addPair<Buffers, library>(all, "glGenBuffers", "glDeleteBuffers");
    addPair<Framebuffers, library>(all, "glGenFramebuffers", "glDeleteFramebuffers");
    addPair<Renderbuffers, library>(all, "glGenRenderbuffers", "glDeleteRenderbuffers");
    addPair<VertexArrays, library>(all, "glGenVertexArrays", "glDeleteVertexArrays");
    addPair<Queries, library>(all, "glGenQueries", "glDeleteQueries");
    using List = Counting<Lists, library>;
    all["glGenLists"] = replacement("glGenLists", &List::genRange, List::realGenRange);
    all["glDeleteLists"] = replacement("glDeleteLists", &List::deleteRange, List::realDeleteRange);
    using Shader = Counting<Shaders, library>;
    all["glCreateShader"] = replacement("glCreateShader", &Shader::createOf, Shader::realCreateOf);
    all["glDeleteShader"] = replacement("glDeleteShader", &Shader::deleteOne, Shader::realDeleteOne);
    using Program = Counting<Programs, library>;
    all["glCreateProgram"] = replacement("glCreateProgram", &Program::create, Program::realCreate);
    all["glDeleteProgram"] = replacement("glDeleteProgram", &Program::deleteOne, Program::realDeleteOne);
    return all;
}

template <int library>
EntryPoint counting(const char* name, EntryPoint real)
{
    static const std::map<std::string, Replacement> all = replacements<library>();
    const auto found = all.find(name);
    if (found == all.end() || !real)
        return real;
    *found->second.real = real;
    return found->second.counting;
}

EntryPoint libGLEntryPoint(const char* resolver, const GLubyte* name)
{
    const char* const text = reinterpret_cast<const char*>(name);
    if (std::string(text) == "glXCreateContextAttribsARB")
        return reinterpret_cast<EntryPoint>(&glXCreateContextAttribsARB);
    return counting<LibGL>(text, next<EntryPoint (*)(const GLubyte*)>(resolver)(name));
}

} // namespace

std::map<std::string, long> glCounts()
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    std::map<std::string, long> counts;
    for (const char* const name : kindNames)
        counts[name] = 0;
    std::set<const Objects*> seen;
    for (const auto& entry : state().contexts)
        if (seen.insert(entry.second.get()).second)
            for (const auto& object : *entry.second)
                ++counts[kindNames[object.first]];
    counts["contexts"] = static_cast<long>(state().contexts.size());
    return counts;
}

} // namespace velmora::test

using velmora::test::counting;
using velmora::test::created;
using velmora::test::destroyed;
using velmora::test::Egl;
using velmora::test::EglOfLibGL;
using velmora::test::EntryPoint;
using velmora::test::Mesa;
using velmora::test::next;
using velmora::test::OSMesa;
using velmora::test::real;

EXPORTED EntryPoint glXGetProcAddress(const GLubyte* name)
{
    return velmora::test::libGLEntryPoint("glXGetProcAddress", name);
}

EXPORTED EntryPoint glXGetProcAddressARB(const GLubyte* name)
{
    return velmora::test::libGLEntryPoint("glXGetProcAddressARB", name);
}

EXPORTED EntryPoint eglGetProcAddress(const char* name)
{
    return counting<EglOfLibGL>(name, real<EntryPoint (*)(const char*)>(Egl, "eglGetProcAddress")(name));
}

EXPORTED EntryPoint OSMesaGetProcAddress(const char* name)
{
    return counting<Mesa>(name, real<EntryPoint (*)(const char*)>(OSMesa, "OSMesaGetProcAddress")(name));
}

EXPORTED EGLContext eglCreateContext(EGLDisplay display, EGLConfig config, EGLContext share, const EGLint* attributes)
{
    const auto create = real<decltype(&eglCreateContext)>(Egl, "eglCreateContext");
    return created(create(display, config, share, attributes), share);
}

EXPORTED EGLBoolean eglDestroyContext(EGLDisplay display, EGLContext context)
{
    destroyed(context);
    return real<decltype(&eglDestroyContext)>(Egl, "eglDestroyContext")(display, context);
}

EXPORTED GLXContext glXCreateContext(Display* display, XVisualInfo* visual, GLXContext share, Bool direct)
{
    const auto original = next<decltype(&glXCreateContext)>("glXCreateContext");
    return created(original(display, visual, share, direct), share);
}

EXPORTED GLXContext glXCreateNewContext(Display* display, GLXFBConfig config, int type, GLXContext share, Bool direct)
{
    const auto original = next<decltype(&glXCreateNewContext)>("glXCreateNewContext");
    return created(original(display, config, type, share, direct), share);
}

EXPORTED GLXContext glXCreateContextAttribsARB(Display* display, GLXFBConfig config, GLXContext share, Bool direct,
                                               const int* attributes)
{
    const auto resolve = next<EntryPoint (*)(const GLubyte*)>("glXGetProcAddress");
    const auto original = reinterpret_cast<PFNGLXCREATECONTEXTATTRIBSARBPROC>(
        resolve(reinterpret_cast<const GLubyte*>("glXCreateContextAttribsARB")));
    return created(original(display, config, share, direct, attributes), share);
}

EXPORTED void glXDestroyContext(Display* display, GLXContext context)
{
    destroyed(context);
    next<decltype(&glXDestroyContext)>("glXDestroyContext")(display, context);
}

using OSMesaContext = velmora::sdk::integration::intern::OSMesaLibrary::Context;

EXPORTED OSMesaContext OSMesaCreateContextExt(unsigned format, int depth, int stencil, int accumulation,
                                              OSMesaContext share)
{
    const auto create =
        real<OSMesaContext (*)(unsigned, int, int, int, OSMesaContext)>(OSMesa, "OSMesaCreateContextExt");
    return created(create(format, depth, stencil, accumulation, share), share);
}

EXPORTED void OSMesaDestroyContext(OSMesaContext context)
{
    destroyed(context);
    real<void (*)(OSMesaContext)>(OSMesa, "OSMesaDestroyContext")(context);
}
