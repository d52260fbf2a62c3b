#pragma once

#include <string>
#include <vector>

namespace velmora::test {

/// One thing that goes from a person to the X server.
struct Input {
    enum Kind { Move, Button, Key, Resize, Close };
    Kind kind = Move;
    /// Move: the place on the screen. Button: number, and 1 for down. Key: symbol, and 1 for down.
    /// Resize: the new size of the active window. Close: nothing.
    long a = 0;
    long b = 0;
};

/// What a person does without a pause, and for how long they wait afterwards.
struct Gesture {
    std::vector<Input> inputs;
    int pauseMilliseconds = 0;
};

/// For a log: "move 10 20, button 1 down".
std::string describe(const Gesture& gesture);

} // namespace velmora::test
