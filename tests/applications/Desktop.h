#pragma once

#include "tests/applications/Gesture.h"
#include "tests/applications/Picture.h"
#include "tests/soak/Screen.h"

#include <string>
#include <vector>

#include <sys/types.h>

struct _XDisplay;

namespace velmora::test {

/// A private X server with the window manager openbox: what a person does there and sees.
class Desktop {
public:
    /// Starts openbox with the configuration. Throws std::runtime_error when it is missing or does not
    /// come up.
    explicit Desktop(const std::string& windowManagerConfiguration);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    void perform(const Gesture& gesture);
    /// Waits until the window manager has dealt with all that has happened so far.
    void awaitWindowManager() const;
    /// Nothing is pressed any more.
    void letGo();
    void type(unsigned long symbol);
    /// Gives the keys to a window, if none has them.
    void activateSomeWindow();
    /// Asks the active window to close, as a click on its frame does.
    void closeActiveWindow();
    void movePointerAway();
    void emptyClipboard();
    /// A key that is held for long does not count several times.
    void stopKeyRepetition();

    /// The whole screen.
    Picture picture() const;
    void savePicture(const Picture& picture, const std::string& fileName) const;
    /// What some program has grabbed and not given back: "the pointer", "the keyboard", or "".
    std::string whatIsGrabbed() const;
    /// How many top-level windows the window manager has in its care.
    std::size_t windowCount() const;

private:
    void perform(const Input& input);
    void resizeActiveWindow(long width, long height);
    void ask(unsigned long window, const char* message, const std::vector<long>& data) const;
    std::vector<unsigned long> windowsOf(const char* property) const;
    unsigned long activeWindow() const;

    Screen m_screen;
    _XDisplay* m_display;
    unsigned long m_question; ///< a window that the window manager is asked about
    pid_t m_windowManager = -1;
};

} // namespace velmora::test
