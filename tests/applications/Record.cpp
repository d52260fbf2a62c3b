#include "tests/applications/Record.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace velmora::test {

namespace {

/// What is told once more or once less from one run to the next, since the window manager, the input method
/// or the clipboard has a hand in it: of these the last of a gesture counts.
bool isToldAgain(const std::string& type)
{
    static const char* const types[] = {"Move",         "Resize",           "WindowStateChange",
                                        "CursorChange", "InputMethodQuery", "ActionChanged",
                                        "ChildAdded",   "ChildRemoved"};
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

/// What waits in the toolkit's own queue comes before or after what comes from the X server.
bool isPosted(const std::string& type)
{
    return type == "PolishRequest" || type == "MetaCall" || type == "DeferredDelete";
}

struct Line {
    explicit Line(const std::string& text) : whole(text), type(text.substr(0, text.find(' ')))
    {
        const std::string rest = text.substr(std::min(type.size() + 1, text.size()));
        receiver = rest.substr(0, rest.find(' '));
    }
    /// Lines of one stream come in their order.
    std::pair<std::string, std::string> stream() const
    {
        return {receiver, isPosted(type) || isToldAgain(type) ? type : ""};
    }

    std::string whole;
    std::string type;
    std::string receiver;
};

/// During one gesture the events of a widget come in their order, between two widgets or two sources the
/// order is left to chance.
std::vector<std::string> inOrder(const std::vector<std::string>& ofGesture)
{
    std::vector<Line> lines(ofGesture.begin(), ofGesture.end());
    std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) { return a.stream() < b.stream(); });
    std::vector<std::string> result;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (!isToldAgain(lines[i].type) || i + 1 == lines.size() || lines[i].stream() != lines[i + 1].stream())
            result.push_back(lines[i].whole);
    return result;
}

} // namespace

std::vector<std::string> readRecord(const std::string& fileName)
{
    std::ifstream file(fileName);
    std::vector<std::string> lines;
    std::vector<std::string> ofGesture;
    const auto endGesture = [&] {
        for (const std::string& line : inOrder(ofGesture))
            lines.push_back(line);
        ofGesture.clear();
    };
    for (std::string line; std::getline(file, line);) {
        if (line.compare(0, 3, "-- ") == 0) {
            endGesture();
            lines.push_back(line);
        } else {
            ofGesture.push_back(line);
        }
    }
    endGesture();
    return lines;
}

} // namespace velmora::test
