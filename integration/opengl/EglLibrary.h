#pragma once

// Without Xlib, whose macros would replace names of the toolkit's.
#define EGL_NO_X11
#define MESA_EGL_NO_X11_HEADERS
#include <EGL/egl.h>
#include <EGL/eglext.h>

namespace velmora::sdk::integration::intern {

// The entry points named without their "egl".
// clang-format off
#define VELMORA_EGL_FUNCTIONS(ENTRY) \
    ENTRY(BindAPI) ENTRY(ChooseConfig) ENTRY(CreateContext) ENTRY(DestroyContext) \
    ENTRY(GetCurrentContext) \
    ENTRY(GetCurrentDisplay) ENTRY(GetCurrentSurface) ENTRY(GetProcAddress) ENTRY(Initialize) \
    ENTRY(MakeCurrent) ENTRY(QueryAPI) ENTRY(QueryContext) ENTRY(QueryString)
// clang-format on

/// The entry points of EGL that this library uses. Those of extensions come from GetProcAddress.
struct EglLibrary {
#define VELMORA_EGL_MEMBER(name) decltype(&::egl##name) name; // NOLINT(bugprone-macro-parentheses): a name
    VELMORA_EGL_FUNCTIONS(VELMORA_EGL_MEMBER)
#undef VELMORA_EGL_MEMBER
};

/// EGL, loaded when it is first asked for; null where it is not installed. The environment variable
/// VELMORA_EGL_LIBRARY names another file to load.
const EglLibrary* egl();
/// The same where the process has loaded it already; null where nobody can have a context of it.
const EglLibrary* loadedEgl();

/// OpenGL is what EGL calls speak of for the life of the object, and afterwards what it was before.
class EglForOpenGL {
public:
    explicit EglForOpenGL(const EglLibrary& library);
    ~EglForOpenGL();
    EglForOpenGL(const EglForOpenGL&) = delete;
    EglForOpenGL& operator=(const EglForOpenGL&) = delete;

private:
    const EglLibrary& m_egl;
    EGLenum m_before;
};

} // namespace velmora::sdk::integration::intern
