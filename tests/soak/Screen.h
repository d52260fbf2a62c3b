#pragma once

#include <map>
#include <string>
#include <vector>

struct _XDisplay;

namespace velmora::test {

/// A private X server with one program on it: its windows, real input to them, and what it holds
/// there. There is no window manager; this takes its part.
class Screen {
public:
    /// Throws std::runtime_error when the display of the environment cannot be opened or lacks XTEST.
    Screen();
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    struct Place {
        unsigned long window = 0; ///< 0: there is none
        int x = 0, y = 0, width = 0, height = 0;
        bool isPopup = false; ///< a menu or the like, which takes the keys by itself
        std::string title;
    };

    /// The topmost window.
    Place top() const;
    /// The lowest window with a title: the program's main window.
    Place main() const;

    /// Gives the window the keys, unless a popup has them.
    void focus(const Place& place);
    void move(int x, int y);
    void button(int number, bool down);
    void key(unsigned long symbol, bool down);
    /// With Control or the like held down; 0: none.
    void type(unsigned long symbol, unsigned long modifier = 0);
    void type(const std::string& text);
    void resize(const Place& place, int x, int y, int width, int height);
    /// As a window manager asks it.
    void close(const Place& place);

    /// How many X resources of each type ("WINDOW", "CURSOR", …) other clients have, and the memory of
    /// their pixmaps.
    std::map<std::string, long> resources() const;
    long pixmapKilobytes() const;

private:
    std::vector<Place> places() const;
    void deliver() const;

    _XDisplay* m_display;
};

} // namespace velmora::test
