#include "tests/applications/RandomPerson.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <sstream>
#include <utility>

#include <X11/keysym.h>

namespace velmora::test {

namespace {

constexpr int LongestPauseMilliseconds = 120;
constexpr int LongPauseMilliseconds = 1500; // now and then, so that something can begin or end meanwhile
constexpr int LeftButton = 1;
constexpr int RightButton = 3;
constexpr int WheelUp = 4;

const unsigned long plainKeys[] = {XK_Tab,       XK_Return, XK_space,  XK_Down, XK_Up, XK_Left,
                                   XK_Right,     XK_Home,   XK_End,    XK_Next, XK_F2, XK_Delete,
                                   XK_BackSpace, XK_Menu,   XK_Escape, XK_1,    XK_a,  XK_F10};
// Not what leaves the program: others do that often enough.
const unsigned long shortcutKeys[] = {XK_a, XK_c, XK_v, XK_x, XK_z, XK_y, XK_n, XK_o, XK_s, XK_f, XK_b, XK_i, XK_p};
const unsigned long letters[] = {XK_a, XK_e, XK_o, XK_t, XK_1, XK_2, XK_9, XK_space, XK_minus, XK_period};

std::vector<Input> buttonTwice(int button)
{
    return {{Input::Button, button, 1}, {Input::Button, button, 0}};
}

} // namespace

struct RandomPerson::Habit {
    int weight;
    bool onlyInHaste;
    void (RandomPerson::*act)(const Target&);
};

RandomPerson::RandomPerson(unsigned long seed, Manner manner) : m_random(seed), m_manner(manner) {}

long RandomPerson::upTo(long most)
{
    return static_cast<long>(m_random() % static_cast<unsigned long>(std::max(1L, most)));
}

std::vector<RandomPerson::Target> RandomPerson::parse(const std::string& targets)
{
    std::vector<Target> result;
    std::istringstream words(targets);
    for (std::string word; words >> word;) {
        Target target;
        const std::string::size_type colon = word.find(':');
        target.kind = word.substr(0, colon);
        if (std::sscanf(word.c_str() + colon + 1, "%ld,%ld,%ld,%ld", &target.x, &target.y, &target.width,
                        &target.height) == 4)
            result.push_back(target);
    }
    return result;
}

std::vector<Gesture> RandomPerson::act(const std::string& targets)
{
    static const Habit habits[] = {
        {30, false, &RandomPerson::click},        {8, false, &RandomPerson::rightClick},
        {6, false, &RandomPerson::doubleClick},   {12, false, &RandomPerson::drag},
        {6, false, &RandomPerson::turnWheel},     {8, false, &RandomPerson::type},
        {14, false, &RandomPerson::pressKey},     {10, false, &RandomPerson::pressEscape},
        {4, false, &RandomPerson::pressShortcut}, {8, false, &RandomPerson::openMenu},
        {2, true, &RandomPerson::resize},         {1, true, &RandomPerson::close},
    };
    m_targets = parse(targets);
    m_act.clear();
    // What a file dialog shows, and when, is not the same twice.
    if (m_targets.empty() || (m_manner == Patient && m_targets.front().kind == "files")) {
        pressEscape(Target());
        return m_act;
    }
    int all = 0;
    for (const Habit& habit : habits)
        all += habit.onlyInHaste && m_manner != Hasty ? 0 : habit.weight;
    long chosen = upTo(all);
    for (const Habit& habit : habits) {
        chosen -= habit.onlyInHaste && m_manner != Hasty ? 0 : habit.weight;
        if (chosen < 0) {
            (this->*habit.act)(m_targets[static_cast<std::size_t>(upTo(static_cast<long>(m_targets.size())))]);
            break;
        }
    }
    return m_act;
}

Input RandomPerson::placeIn(const Target& target)
{
    return {Input::Move, target.x + upTo(target.width), target.y + upTo(target.height)};
}

int RandomPerson::pause()
{
    return static_cast<int>(1 + upTo(upTo(20) == 0 ? LongPauseMilliseconds : LongestPauseMilliseconds));
}

Gesture RandomPerson::gesture(std::vector<Input> inputs)
{
    return {std::move(inputs), pause()};
}

/// Where a press opens or closes a window, it depends on the window manager who gets the release.
void RandomPerson::key(unsigned long symbol, unsigned long modifier)
{
    std::vector<Input> down;
    std::vector<Input> up = {{Input::Key, static_cast<long>(symbol), 0}};
    if (modifier != 0) {
        down.push_back({Input::Key, static_cast<long>(modifier), 1});
        up.push_back({Input::Key, static_cast<long>(modifier), 0});
    }
    down.push_back({Input::Key, static_cast<long>(symbol), 1});
    if (m_manner == Patient)
        m_act.push_back(gesture(std::exchange(down, {})));
    down.insert(down.end(), up.begin(), up.end());
    m_act.push_back(gesture(down));
}

void RandomPerson::click(const Target& target)
{
    m_act.push_back(gesture({placeIn(target)}));
    if (m_manner == Patient || upTo(3) != 0) {
        m_act.push_back(gesture(buttonTwice(LeftButton)));
        return;
    }
    m_act.push_back(gesture({{Input::Button, LeftButton, 1}}));
    m_act.push_back(gesture({{Input::Button, LeftButton, 0}}));
}

void RandomPerson::rightClick(const Target& target)
{
    m_act.push_back(gesture({placeIn(target)}));
    m_act.push_back(gesture(buttonTwice(RightButton)));
}

void RandomPerson::doubleClick(const Target& target)
{
    m_act.push_back(gesture({placeIn(target)}));
    std::vector<Input> inputs = buttonTwice(LeftButton);
    const std::vector<Input> again = buttonTwice(LeftButton);
    inputs.insert(inputs.end(), again.begin(), again.end());
    m_act.push_back(gesture(inputs));
}

bool RandomPerson::repeatsWhileHeld(const Target& target) const
{
    return target.kind == "spin" || target.kind == "slider" || target.kind == "tab";
}

void RandomPerson::drag(const Target& target)
{
    if (m_manner == Patient && repeatsWhileHeld(target))
        return turnWheel(target);
    const long button = upTo(8) == 0 ? RightButton : LeftButton;
    m_act.push_back(gesture({placeIn(target)}));
    m_act.push_back(gesture({{Input::Button, button, 1}}));
    for (long i = 1 + upTo(5); i > 0; --i) {
        const Target& next =
            upTo(2) == 0 ? target : m_targets[static_cast<std::size_t>(upTo(static_cast<long>(m_targets.size())))];
        m_act.push_back(gesture({placeIn(next)}));
    }
    m_act.push_back(gesture({{Input::Button, button, 0}}));
}

void RandomPerson::turnWheel(const Target& target)
{
    m_act.push_back(gesture({placeIn(target)}));
    const long button = WheelUp + upTo(2);
    for (long i = 1 + upTo(4); i > 0; --i)
        m_act.push_back(gesture(buttonTwice(static_cast<int>(button))));
}

void RandomPerson::type(const Target&)
{
    for (long i = 1 + upTo(6); i > 0; --i)
        key(letters[upTo(static_cast<long>(std::size(letters)))]);
}

void RandomPerson::pressKey(const Target&)
{
    key(plainKeys[upTo(static_cast<long>(std::size(plainKeys)))]);
}

void RandomPerson::pressEscape(const Target&)
{
    key(XK_Escape);
}

void RandomPerson::pressShortcut(const Target&)
{
    key(shortcutKeys[upTo(static_cast<long>(std::size(shortcutKeys)))], XK_Control_L);
}

/// Of the menu bar, or the context menu of what has the focus.
void RandomPerson::openMenu(const Target& target)
{
    std::vector<Target> menus;
    std::copy_if(m_targets.begin(), m_targets.end(), std::back_inserter(menus),
                 [](const Target& each) { return each.kind == "menu" || each.kind == "combo"; });
    if (menus.empty())
        return rightClick(target);
    click(menus[static_cast<std::size_t>(upTo(static_cast<long>(menus.size())))]);
    for (long i = upTo(6); i > 0; --i)
        key(XK_Down);
    key(upTo(2) == 0 ? XK_Return : XK_Escape);
}

/// A click on a window's frame first closes the popup that has the mouse.
void RandomPerson::resize(const Target& target)
{
    if (m_targets.front().kind == "popup")
        return pressEscape(target);
    m_act.push_back(gesture({{Input::Resize, 200 + upTo(700), 150 + upTo(500)}}));
}

void RandomPerson::close(const Target& target)
{
    if (m_targets.front().kind == "popup")
        return pressEscape(target);
    m_act.push_back(gesture({{Input::Close, 0, 0}}));
}

} // namespace velmora::test
