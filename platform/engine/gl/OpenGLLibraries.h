#pragma once

namespace velmora::engine {

using GLEntryPoint = void (*)();
using GLResolver = GLEntryPoint (*)(const char* name);

/// The entry points of the OpenGL library whose context is current on this thread: GLX, EGL or OSMesa; of
/// libGL when none is. EGL and OSMesa count only where somebody has loaded them; the engine needs neither.
///
/// The software library is asked last: it shares its idea of a current context with Mesa's other libraries,
/// and keeps it after these have taken the thread back.
GLResolver currentResolver();

/// Whether it is libGL's, whose functions a program links: with a context of GLX or EGL, or none.
bool isOfLibGL();

/// A function of EGL, or null where nobody has loaded EGL.
GLEntryPoint eglFunction(const char* name);

} // namespace velmora::engine
