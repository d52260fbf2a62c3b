#include "tests/soak/Person.h"

#include <algorithm>
#include <iterator>

#include <poll.h>

#include <X11/keysym.h>

namespace velmora::test {

struct Person::Habit {
    int weight;
    void (Person::*act)();
};

Person::Person(Screen& screen, unsigned long seed) : m_screen(screen), m_random(seed) {}

int Person::upTo(int most)
{
    return static_cast<int>(m_random() % static_cast<unsigned long>(std::max(1, most)));
}

void Person::hesitate(int milliseconds)
{
    poll(nullptr, 0, 1 + upTo(milliseconds));
}

/// For what takes its time, to the end or not.
void Person::waitPerhaps()
{
    hesitate(upTo(2) == 0 ? 500 : 12000);
}

void Person::actOnce()
{
    static const Habit habits[] = {
        {20, &Person::drag},          {8, &Person::turnWheel},     {10, &Person::clickSomewhere},
        {14, &Person::pressShortcut}, {4, &Person::lookIntoMenus}, {10, &Person::openFile},
        {8, &Person::exportImage},    {5, &Person::print},         {3, &Person::previewPage},
        {3, &Person::setUpPage},      {12, &Person::interrupt},    {5, &Person::resize},
        {2, &Person::closeWindow},    {4, &Person::reload},        {5, &Person::usePanels},
    };
    const Screen::Place top = m_screen.top();
    if (!top.window) {
        hesitate(100);
        return;
    }
    m_screen.focus(top);
    if (top.isPopup || top.title.find("Viewer") == std::string::npos) {
        answer(top);
        return;
    }
    int all = 0;
    for (const Habit& habit : habits)
        all += habit.weight;
    int chosen = upTo(all);
    const Habit* habit = habits;
    while (chosen >= habit->weight)
        chosen -= (habit++)->weight;
    (this->*habit->act)();
}

/// A menu or a dialog that is in the way.
void Person::answer(const Screen::Place& place)
{
    switch (upTo(6)) {
    case 0:
        m_screen.type(XK_Return);
        break;
    case 1:
        m_screen.move(place.x + upTo(place.width), place.y + upTo(place.height));
        m_screen.button(1, true);
        hesitate(30);
        m_screen.button(1, false);
        break;
    case 2:
        m_screen.type(XK_Tab);
        break;
    case 3:
        m_screen.type(XK_space);
        break;
    default:
        m_screen.type(XK_Escape);
    }
    hesitate(150);
}

void Person::drag()
{
    const Screen::Place window = m_screen.main();
    const int button = 1 + upTo(3);
    m_screen.move(window.x + upTo(window.width), window.y + upTo(window.height));
    m_screen.button(button, true);
    for (int i = upTo(8); i > 0; --i) {
        hesitate(30);
        m_screen.move(window.x + upTo(window.width), window.y + upTo(window.height));
    }
    m_screen.button(button, false);
    hesitate(100);
}

void Person::turnWheel()
{
    const Screen::Place window = m_screen.main();
    m_screen.move(window.x + window.width / 2, window.y + window.height / 2);
    const int button = 4 + upTo(2);
    for (int i = upTo(6); i > 0; --i) {
        m_screen.button(button, true);
        m_screen.button(button, false);
        hesitate(30);
    }
}

void Person::clickSomewhere()
{
    const Screen::Place window = m_screen.main();
    m_screen.move(window.x + upTo(window.width), window.y + upTo(window.height));
    m_screen.button(1, true);
    m_screen.button(1, false);
    hesitate(100);
}

void Person::pressShortcut()
{
    static const unsigned long keys[] = {XK_r, XK_m, XK_z, XK_s, XK_f, XK_space, XK_Escape, XK_f};
    m_screen.type(keys[upTo(static_cast<int>(std::size(keys)))]);
    hesitate(100);
}

void Person::reload()
{
    m_screen.type(XK_F5);
    waitPerhaps();
}

/// Opens or closes one, and clicks about where they show: at the right and at the bottom.
void Person::usePanels()
{
    m_screen.type(XK_v, XK_Alt_L);
    hesitate(100);
    m_screen.type(upTo(2) == 0 ? XK_c : XK_a);
    hesitate(200);
    const Screen::Place window = m_screen.main();
    for (int i = upTo(5); i > 0; --i) {
        const bool isRight = upTo(2) == 0;
        const int x = isRight ? window.width - 1 - upTo(window.width / 4) : upTo(window.width);
        const int y = isRight ? upTo(window.height) : window.height - 1 - upTo(window.height / 3);
        m_screen.move(window.x + x, window.y + y);
        m_screen.button(1, true);
        m_screen.button(1, false);
        hesitate(100);
    }
    m_screen.type(upTo(2) == 0 ? XK_Down : XK_space);
}

void Person::lookIntoMenus()
{
    static const unsigned long menus[] = {XK_f, XK_v, XK_h};
    m_screen.type(menus[upTo(3)], XK_Alt_L);
    hesitate(100);
    for (int i = upTo(6); i > 0; --i)
        m_screen.type(XK_Down);
    hesitate(100);
    m_screen.type(upTo(3) == 0 ? XK_Return : XK_Escape);
}

void Person::openFile()
{
    static const char* const names[] = {"a.asc", "b.csv", "c.asc", "d.csv", "missing"};
    m_screen.type(XK_o, XK_Control_L);
    hesitate(400);
    m_screen.focus(m_screen.top());
    m_screen.type(names[upTo(static_cast<int>(std::size(names)))]);
    m_screen.type(XK_Return);
    hesitate(1500);
}

void Person::exportImage()
{
    m_screen.type(XK_e, XK_Control_L);
    hesitate(300);
    m_screen.focus(m_screen.top());
    if (upTo(2) == 0) // another strategy: the page of the dialog has it behind its numbers
        m_screen.type(XK_i, XK_Alt_L);
    m_screen.type(XK_Down);
    m_screen.type(XK_Return);
    hesitate(400);
    m_screen.focus(m_screen.top());
    m_screen.type(XK_Return);
    hesitate(300);
    m_screen.focus(m_screen.top());
    m_screen.type(XK_y, XK_Alt_L); // the file is there already
    waitPerhaps();
}

void Person::print()
{
    m_screen.type(XK_p, XK_Control_L);
    hesitate(500);
    m_screen.focus(m_screen.top());
    m_screen.type(XK_Return);
    hesitate(300);
    m_screen.focus(m_screen.top());
    m_screen.type(XK_y, XK_Alt_L);
    waitPerhaps();
}

void Person::previewPage()
{
    m_screen.type(XK_f, XK_Alt_L);
    hesitate(100);
    m_screen.type(XK_v);
    hesitate(2000);
    m_screen.focus(m_screen.top());
    m_screen.type(XK_Escape);
}

void Person::setUpPage()
{
    m_screen.type(XK_f, XK_Alt_L);
    hesitate(100);
    m_screen.type(XK_s);
    hesitate(500);
    m_screen.focus(m_screen.top());
    for (int i = upTo(6); i > 0; --i)
        m_screen.type(upTo(2) ? XK_Tab : XK_Down);
    m_screen.type(upTo(2) ? XK_Return : XK_Escape);
}

void Person::interrupt()
{
    const Screen::Place window = m_screen.main();
    if (upTo(2) == 0) {
        m_screen.type(XK_Escape);
    } else { // the end of the status bar, where the buttons Stop and Finish come and go
        m_screen.move(window.x + window.width - 10 - upTo(200), window.y + window.height - 12);
        m_screen.button(1, true);
        m_screen.button(1, false);
    }
    hesitate(50);
}

void Person::resize()
{
    m_screen.resize(m_screen.main(), upTo(100), upTo(100), 300 + upTo(800), 250 + upTo(600));
    hesitate(300);
}

void Person::closeWindow()
{
    if (upTo(2) == 0)
        m_screen.type(XK_q, XK_Control_L);
    else
        m_screen.close(m_screen.main());
    hesitate(800);
}

} // namespace velmora::test
