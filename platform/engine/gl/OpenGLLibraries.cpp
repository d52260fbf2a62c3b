#include "engine/gl/OpenGLLibraries.h"

#include <cstdlib>

#include <GL/glx.h>
#include <dlfcn.h>

namespace velmora::engine {

namespace {

/// A library that others may have loaded.
class LoadedLibrary {
public:
    /// `variable` of the environment names another file that may have been loaded in its place.
    constexpr LoadedLibrary(const char* name, const char* variable) : m_name(name), m_variable(variable) {}

    template <typename Function>
    Function find(const char* entryPoint)
    {
        // Once found, it stays loaded.
        if (!m_handle)
            m_handle = open();
        return m_handle ? reinterpret_cast<Function>(address(entryPoint)) : nullptr;
    }

private:
    void* open() const
    {
        const char* const other = std::getenv(m_variable);
        return dlopen(other && *other ? other : m_name, RTLD_LAZY | RTLD_NOLOAD);
    }
    /// A program's own definition comes first, like that of a tracer that was put in front.
    void* address(const char* entryPoint) const
    {
        void* const own = dlsym(RTLD_DEFAULT, entryPoint);
        return own ? own : dlsym(m_handle, entryPoint);
    }

    const char* m_name;
    const char* m_variable;
    void* m_handle = nullptr;
};

LoadedLibrary egl("libEGL.so.1", "VELMORA_EGL_LIBRARY");
LoadedLibrary mesa("libOSMesa.so.8", "VELMORA_OSMESA_LIBRARY");

bool hasContext(LoadedLibrary& library, const char* currentContext)
{
    const auto current = library.find<void* (*)()>(currentContext);
    return current && current();
}

GLEntryPoint libGLEntryPoint(const char* name)
{
    return glXGetProcAddress(reinterpret_cast<const GLubyte*>(name));
}

GLEntryPoint eglEntryPoint(const char* name)
{
    return egl.find<GLResolver>("eglGetProcAddress")(name);
}

GLEntryPoint mesaEntryPoint(const char* name)
{
    return mesa.find<GLResolver>("OSMesaGetProcAddress")(name);
}

} // namespace

GLEntryPoint eglFunction(const char* name)
{
    return egl.find<GLEntryPoint>(name);
}

GLResolver currentResolver()
{
    if (glXGetCurrentContext())
        return libGLEntryPoint;
    if (hasContext(egl, "eglGetCurrentContext"))
        return eglEntryPoint;
    return hasContext(mesa, "OSMesaGetCurrentContext") ? mesaEntryPoint : libGLEntryPoint;
}

bool isOfLibGL()
{
    return currentResolver() != mesaEntryPoint;
}

} // namespace velmora::engine
