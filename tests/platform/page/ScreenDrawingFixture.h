#pragma once

#include "tests/platform/page/EngineFixture.h"

namespace velmora::test {

/// A started engine with one area, which the test shows.
class ScreenDrawing : public EngineFixture {
protected:
    /// Stops the engine in its next turn.
    void stopAtOnce()
    {
        inTurn = [] { return 1; };
    }
    void letItGoOn()
    {
        inTurn = [] { return 0; };
    }
    /// A page with lines, slow to draw, shown but not drawn.
    void showSlowLines()
    {
        load(tableFile());
        slowDown();
        m_page = show(area);
    }
    bool areaIsWhite() const { return area.surface.countOther(White) == 0; }

    FakeArea area{240, 180};
    int m_page = 0;
};

} // namespace velmora::test
