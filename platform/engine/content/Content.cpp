// What a content does that overrides nothing.

#include "engine/VelContent.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace velmora::content {
namespace {

std::string numberText(double value)
{
    std::array<char, 40> text{};
    return std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}

} // namespace

Content::~Content() = default;

bool Content::drawsCoarsely() const
{
    return false;
}

void Content::leaveContext(unsigned long, bool) {}

std::string Content::notes() const
{
    return {};
}

std::string Content::details() const
{
    Extent box;
    if (!extent(box))
        return {};
    std::string text;
    for (std::size_t i = 0; i < 3; ++i)
        text += std::string(i == 0 ? "" : "\n") + "Extent in " + "xyz"[i] + "\t" + numberText(box.least[i]) + " to " +
                numberText(box.greatest[i]);
    return text;
}

bool Content::extent(Extent&) const
{
    return false;
}

bool Content::canRotate() const
{
    return false;
}

void Content::rotate(double, double) {}

bool Content::lookFrom(Side)
{
    return false;
}

void Content::translate(double, double) {}
void Content::zoom(double, double, double) {}

void Content::zoomTo(double x1, double y1, double x2, double y2)
{
    constexpr double Middle = 0.5;
    const double x = (x1 + x2) / 2;
    const double y = (y1 + y2) / 2;
    zoom(1 / std::max(x2 - x1, y2 - y1), x, y);
    translate(Middle - x, Middle - y);
}

bool Content::zoomAxis(double, double, double)
{
    return false;
}

void Content::fit() {}

void Content::showAll()
{
    fit();
}

std::string Content::viewState() const
{
    return {};
}

bool Content::setViewState(const std::string&)
{
    return false;
}

void Content::takeViewOf(const Content& other, Checkpoint&)
{
    setViewState(other.viewState());
}

bool Content::valueAt(double, double, ShownValue&) const
{
    return false;
}

int Content::pick(double, double, double, double, const PickFilter&)
{
    return 0;
}

void Content::deselectAll() {}

bool Content::selectNeighbour(bool)
{
    return false;
}

int Content::selectedCount() const
{
    return 0;
}

std::string Content::selectionDescription() const
{
    return {};
}

Reader::~Reader() = default;

} // namespace velmora::content
