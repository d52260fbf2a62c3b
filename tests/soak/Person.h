#pragma once

#include "tests/soak/Screen.h"

#include <random>

namespace velmora::test {

/// Someone at the viewer who does whatever comes to mind, as fast as the program takes it: turns the
/// plot, opens files and reloads them, uses the panels, exports, prints, interrupts, resizes and closes windows. The
/// same seed does the same, as far as the program is where it was.
class Person {
public:
    /// There are the files a.asc, b.csv, c.asc (large) and d.csv (damaged) in the program's folder.
    Person(Screen& screen, unsigned long seed);

    /// One thing that takes a person a moment.
    void actOnce();

private:
    struct Habit;

    int upTo(int most);
    /// Waits as long as a person does, up to so many milliseconds.
    void hesitate(int milliseconds);
    void waitPerhaps();
    void answer(const Screen::Place& place);

    void drag();
    void turnWheel();
    void clickSomewhere();
    void pressShortcut();
    void reload();
    void usePanels();
    void lookIntoMenus();
    void openFile();
    void exportImage();
    void print();
    void previewPage();
    void setUpPage();
    void interrupt();
    void resize();
    void closeWindow();

    Screen& m_screen;
    std::mt19937_64 m_random;
};

} // namespace velmora::test
