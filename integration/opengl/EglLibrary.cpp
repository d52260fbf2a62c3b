#include "integration/opengl/EglLibrary.h"

#include "integration/opengl/SharedLibrary.h"

#include <optional>

namespace velmora::sdk::integration::intern {

namespace {

constexpr SharedLibrary Library{"libEGL.so.1", "VELMORA_EGL_LIBRARY"};

std::optional<EglLibrary> entryPointsOf(void* handle)
{
    EglLibrary found = {};
    bool complete = handle != nullptr;
#define VELMORA_EGL_FIND(name) complete = complete && SharedLibrary::find(handle, "egl" #name, found.name);
    VELMORA_EGL_FUNCTIONS(VELMORA_EGL_FIND)
#undef VELMORA_EGL_FIND
    return complete ? std::optional<EglLibrary>(found) : std::nullopt;
}

/// A library that was not there may be the next time.
const EglLibrary* found(bool mayLoad)
{
    static std::optional<EglLibrary> library;
    if (!library)
        library = entryPointsOf(mayLoad ? Library.load() : Library.loaded());
    return library ? &*library : nullptr;
}

} // namespace

const EglLibrary* egl()
{
    return found(true);
}

const EglLibrary* loadedEgl()
{
    return found(false);
}

EglForOpenGL::EglForOpenGL(const EglLibrary& library) : m_egl(library), m_before(library.QueryAPI())
{
    m_egl.BindAPI(EGL_OPENGL_API);
}

EglForOpenGL::~EglForOpenGL()
{
    m_egl.BindAPI(m_before);
}

} // namespace velmora::sdk::integration::intern
