#pragma once

#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"

#include <QPoint>

namespace velmora::test {

/// Where the last press was.
class Presses : public sdk::integration::MouseEventListenerInterface {
public:
    void mouseMoved(sdk::integration::MouseEventInterface&, sdk::integration::MouseEventObservableInterface&) override
    {}
    void buttonPressed(sdk::integration::MouseEventInterface& event,
                       sdk::integration::MouseEventObservableInterface&) override
    {
        last = QPoint(event.x(), event.y());
        ++count;
    }
    void buttonReleased(sdk::integration::MouseEventInterface&,
                        sdk::integration::MouseEventObservableInterface&) override
    {}
    void buttonDoublePressed(sdk::integration::MouseEventInterface&,
                             sdk::integration::MouseEventObservableInterface&) override
    {}

    QPoint last;
    int count = 0;
};

} // namespace velmora::test
