#include "tests/glarea/DrawAreaFixture.h"

#include "testing/EngineProbe.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/gl.h>
#include <cmath>

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;

namespace velmora::test {

namespace {

bool showsOnly(const QWidget& widget, QRgb color)
{
    QImage shot = grabFromScreen(widget);
    // The edges of a window and of the one that it is in are each rounded by themselves: one may cut the other.
    const double scale = displayScale(widget);
    if (scale > std::floor(scale))
        shot = shot.copy(0, 0, shot.width() - 1, shot.height() - 1);
    return !shot.isNull() && countColor(shot, color) == shot.width() * shot.height();
}

} // namespace

Painter::Painter(GLDrawArea& area, QRgb color) : m_area(&area), m_color(color)
{
    area.addStateListener(this);
}

Painter::~Painter()
{
    if (m_area)
        m_area->removeStateListener(this);
}

void Painter::drawAreaExposed(GLDrawAreaInterface& area, bool sizeChanged)
{
    exposures.push_back(sizeChanged);
    int width = 0;
    int height = 0;
    area.getSize(&width, &height);
    area.getGLContext().setCurrentGL();
    glViewport(0, 0, width, height);
    glClearColor(qRed(m_color) / 255.f, qGreen(m_color) / 255.f, qBlue(m_color) / 255.f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    area.getGLContext().swapBuffers();
}

void Painter::drawAreaDestroyed(GLDrawAreaInterface& area)
{
    ++destructions;
    contextWorkedAtTheEnd = area.getGLContext().setCurrentGL() && glGetString(GL_VERSION) != nullptr;
    area.removeStateListener(this);
    m_area = nullptr;
}

QSize toldSize(const sdk::integration::GLDrawArea& area)
{
    int width = 0;
    int height = 0;
    area.getSize(&width, &height);
    return QSize(width, height);
}

bool comesToShow(const QWidget& widget, QRgb color)
{
    return waitUntil([&] { return showsOnly(widget, color); });
}

void DrawArea::SetUp()
{
    EngineProbe::reset();
    EngineProbe::setPageTrackerState(1);
    movePointerToScreen(1200, 1000);
}

void DrawArea::TearDown()
{
    EngineProbe::reset();
}

} // namespace velmora::test
