#include "tests/applications/Gesture.h"

namespace velmora::test {

namespace {

std::string describe(const Input& input)
{
    const std::string a = std::to_string(input.a);
    const std::string b = std::to_string(input.b);
    const char* const way = input.b != 0 ? " down" : " up";
    switch (input.kind) {
    case Input::Move:
        return "move " + a + ' ' + b;
    case Input::Button:
        return "button " + a + way;
    case Input::Key:
        return "key " + a + way;
    case Input::Resize:
        return "resize " + a + ' ' + b;
    case Input::Close:
        return "close";
    }
    return "";
}

} // namespace

std::string describe(const Gesture& gesture)
{
    std::string text;
    for (const Input& input : gesture.inputs)
        text += (text.empty() ? "" : ", ") + describe(input);
    return text;
}

} // namespace velmora::test
