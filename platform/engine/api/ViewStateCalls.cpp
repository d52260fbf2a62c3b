// The view of the active page as a text that a host keeps and gives back.

#include "engine/VelUtil.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "engine/plot/Plot.h"

#include <array>
#include <charconv>
#include <string>
#include <vector>

using namespace velmora::engine;

namespace {

std::string kindOf(const Plot& plot)
{
    return plot.canRotate() ? "surface" : "lines";
}

/// The shortest texts that are read as the same numbers again.
std::string textOf(const Plot& plot)
{
    std::string text = kindOf(plot);
    for (const double number : plot.viewNumbers()) {
        std::array<char, 40> buffer{};
        const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
        text += ' ' + std::string(buffer.data(), written.ptr);
    }
    return text;
}

bool readNumbers(const std::string& text, const std::string& kind, std::vector<double>& numbers)
{
    if (text.compare(0, kind.size(), kind) != 0)
        return false;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data() + kind.size(); at != end;) {
        double number = 0;
        if (*at != ' ')
            return false;
        const auto read = std::from_chars(at + 1, end, number);
        if (read.ec != std::errc())
            return false;
        numbers.push_back(number);
        at = read.ptr;
    }
    return true;
}

} // namespace

const char* VelUtilViewState()
{
    static std::string state;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Plot> plot = page ? page->currentPlot() : nullptr;
    state = plot ? textOf(*plot) : "";
    return state.c_str();
}

int VelUtilViewSetState(const char* state)
{
    traceCall("VelUtilViewSetState");
    if (!requireRunning())
        return 0;
    const std::shared_ptr<Page> page = pages().active();
    const std::shared_ptr<Plot> plot = page->currentPlot();
    const std::string text = state ? state : "";
    std::vector<double> numbers;
    if (!plot || !readNumbers(text, kindOf(*plot), numbers) || !plot->setViewNumbers(numbers)) {
        setLastError("\"" + text +
                     "\" is no view of what the page shows. Give one that VelUtilViewState() told of it.");
        return 0;
    }
    page->plotChanged();
    return 1;
}
