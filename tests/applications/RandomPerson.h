#pragma once

#include "tests/applications/Gesture.h"

#include <random>
#include <string>
#include <vector>

namespace velmora::test {

/// Somebody who uses a program without a purpose: clicks, drags, types, opens menus and dialogs, turns
/// the wheel, presses Escape. The same seed does the same as long as the program offers the same.
class RandomPerson {
public:
    /// How the person behaves.
    enum Manner {
        Hasty,   ///< as fast as it comes, windows resized and closed as well
        Patient, ///< nothing whose effect depends on how long something is held; windows stay as they are
    };
    RandomPerson(unsigned long seed, Manner manner);

    /// The next thing to do where these are the targets, as tests/applications/preload/ProgramState.h
    /// has them.
    std::vector<Gesture> act(const std::string& targets);

private:
    struct Target {
        std::string kind;
        long x = 0, y = 0, width = 0, height = 0;
    };
    struct Habit;

    static std::vector<Target> parse(const std::string& targets);
    long upTo(long most);
    Input placeIn(const Target& target);
    int pause();
    Gesture gesture(std::vector<Input> inputs);
    void key(unsigned long symbol, unsigned long modifier = 0);
    bool repeatsWhileHeld(const Target& target) const;

    void click(const Target& target);
    void rightClick(const Target& target);
    void doubleClick(const Target& target);
    void drag(const Target& target);
    void turnWheel(const Target& target);
    void type(const Target& target);
    void pressKey(const Target& target);
    void pressEscape(const Target& target);
    void pressShortcut(const Target& target);
    void openMenu(const Target& target);
    void resize(const Target& target);
    void close(const Target& target);

    std::mt19937_64 m_random;
    Manner m_manner;
    std::vector<Target> m_targets;
    std::vector<Gesture> m_act;
};

} // namespace velmora::test
