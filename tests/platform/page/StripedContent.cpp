#include "tests/platform/page/StripedContent.h"

#include <GL/gl.h>
#include <cmath>

namespace velmora::test {
namespace {

template <typename Function>
Function* find(Function*, const content::Drawing& drawing, const char* name)
{
    return reinterpret_cast<Function*>(drawing.findFunction(name));
}

#define GL_FUNCTION(drawing, name) find(decltype (&::name)(), drawing, #name)

void fill(const content::Drawing& drawing, double from, double to)
{
    const int left = static_cast<int>(std::lround(drawing.frameX + from * drawing.frameWidth));
    const int right = static_cast<int>(std::lround(drawing.frameX + to * drawing.frameWidth));
    GL_FUNCTION(drawing, glEnable)(GL_SCISSOR_TEST);
    GL_FUNCTION(drawing, glScissor)
    (left, static_cast<int>(drawing.frameY), right - left, static_cast<int>(drawing.frameHeight));
    GL_FUNCTION(drawing, glClearColor)(0, 0, 1, 1);
    GL_FUNCTION(drawing, glClear)(GL_COLOR_BUFFER_BIT);
}

} // namespace

bool StripedContent::draw(const content::Drawing& drawing, content::Checkpoint& checkpoint)
{
    const content::StateGuard guard;
    drawings.push_back(drawing);
    for (int i = 0; i < stripes; ++i) {
        whileDrawing();
        fill(drawing, static_cast<double>(i) / stripes, (i + 0.5) / stripes);
        if (!checkpoint.goOn((i + 1.0) / stripes)) {
            whenStopped(drawing);
            return false;
        }
    }
    ++finished;
    return true;
}

bool StripedContent::extent(content::Extent& found) const
{
    found = {{0, -1, 0.5}, {40, 1, 0.5}};
    return true;
}

void StripedContent::zoom(double factor, double, double)
{
    zoomed *= factor;
}

void StripedContent::translate(double dx, double)
{
    moved += dx;
}

bool StripedContent::setViewState(const std::string& state)
{
    if (state.rfind("stripes ", 0) != 0)
        return false;
    zoomed = std::stod(state.substr(8));
    return true;
}

} // namespace velmora::test
