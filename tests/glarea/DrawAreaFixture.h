#pragma once

#include "integration/glarea/GLDrawArea.h"
#include "interfaces/GLDrawAreaListenerInterface.h"

#include <QColor>
#include <QSize>
#include <gtest/gtest.h>
#include <vector>

namespace velmora::test {

constexpr QRgb Green = 0xff00ff00;
constexpr QRgb Blue = 0xff0000ff;

/// Paints an area in one colour on every exposure, as the engine paints its page, and keeps a record
/// of what it heard.
class Painter : public sdk::integration::GLDrawAreaListenerInterface {
public:
    Painter(sdk::integration::GLDrawArea& area, QRgb color);
    ~Painter() override;

    void drawAreaExposed(sdk::integration::GLDrawAreaInterface& area, bool sizeChanged) override;
    void drawAreaDestroyed(sdk::integration::GLDrawAreaInterface& area) override;
    void drawAreaFocusGained(sdk::integration::GLDrawAreaInterface&) override { ++focusGains; }

    std::vector<bool> exposures;
    int destructions = 0;
    int focusGains = 0;
    bool contextWorkedAtTheEnd = false;

private:
    sdk::integration::GLDrawArea* m_area;
    QRgb m_color;
};

/// Tells which of the toolkit's own handlers were reached.
class ToolkitWatch : public sdk::integration::GLDrawArea {
public:
    int draws = 0; ///< of which each reaches paintGL where the context is valid
    int paints = 0;
    int resizes = 0;
    using GLDrawArea::autoBufferSwap;
    using GLDrawArea::focusInEvent;
    using GLDrawArea::paintEvent;

protected:
    void glDraw() override
    {
        ++draws;
        GLDrawArea::glDraw();
    }
    void paintGL() override { ++paints; }
    void resizeGL(int, int) override { ++resizes; }
};

/// The size that the engine is told, in pixels of the screen.
QSize toldSize(const sdk::integration::GLDrawArea& area);

/// Whether the screen comes to show the whole widget in the colour.
bool comesToShow(const QWidget& widget, QRgb color);

/// The engine owns the picture, so that only the painters of these tests paint.
class DrawArea : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

} // namespace velmora::test
