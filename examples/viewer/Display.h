#pragma once

class QString;

namespace velmora::sdk::integration {
class GLDrawArea;
}

namespace viewer {

/// For a task that shows nothing, before there is an application object: where no display is named, the
/// toolkit does without one. A display that is named is used, for its OpenGL may be the faster one.
void doWithoutDisplay();

/// Why there can be no application object here, and what to do about it; empty when there can. For
/// before there is one: the toolkit would abort the process.
QString displayProblem();

/// Throws velmora::ExceptionBase when nothing can be drawn into the area although it is valid.
void requireOpenGL(velmora::sdk::integration::GLDrawArea& area);
/// What to do when the display has no OpenGL for a window.
QString openGLRemedy();

/// When the connection to the display breaks, the toolkit and Xlib call exit() from wherever they
/// are. While this object lives, such an exit says what happened and ends the process with
/// `exitCode`, before anything is destroyed that the code below still uses.
class DisplayWatch {
public:
    explicit DisplayWatch(int exitCode);
    ~DisplayWatch();
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;
};

} // namespace viewer
