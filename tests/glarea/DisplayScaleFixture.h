#pragma once

#include "tests/glarea/DrawAreaFixture.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/WindowManager.h"
#include "tests/support/XInput.h"

#include <QWidget>

namespace velmora::test {

using sdk::integration::GLDrawArea;

/// An area at an odd place of a window that is on the screen.
class DisplayScale : public DrawArea {
protected:
    void SetUp() override
    {
        DrawArea::SetUp();
        window.setGeometry(21, 33, 301, 247);
        area.setGeometry(11, 13, 161, 105);
        ASSERT_TRUE(showAndWait(window));
        ASSERT_TRUE(comesToShow(area, Green));
        // A manager may still be placing the window, which a pointer that is sent to a pixel would miss.
        ASSERT_TRUE(!hasWindowManager() || waitForWindowManager());
    }

    void movePointerToScreenPixel(const QPoint& position) const
    {
        const QPoint corner = placeOnScreen(area, QPoint(0, 0));
        movePointerToScreen(corner.x() + position.x(), corner.y() + position.y());
    }

    QWidget window;
    GLDrawArea area{&window};
    Painter painter{area, Green};
};

} // namespace velmora::test
