#pragma once

#include "interfaces/MouseEventObservableInterface.h"
#include "interfaces/Signal.h"

#include <QObject>

class QMenu;

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

class ThreedMouseDialog;

/// What tells of the motions and buttons of the 3D mouse.
velmora::sdk::integration::MouseEventObservableInterface& threedMouse();

/// Turns, moves and zooms the view as a 3D mouse is moved, as if the plot were in the hand. The device's first button
/// shows everything, the second resets the view.
class ThreedMouseNavigation : public QObject {
    Q_OBJECT

public:
    /// Adds its command to the menu; `area`, to which the view belongs, owns the object.
    ThreedMouseNavigation(QMenu& menu, velmora::sdk::integration::GLDrawArea& area);

private Q_SLOTS:
    void lookForDevice();
    void present();

private:
    using MotionData = velmora::sdk::integration::MouseEventObservableInterface::MotionData;
    using ButtonActions = velmora::sdk::integration::MouseEventObservableInterface::ButtonActions;

    void move(const MotionData& motion);
    void act(ButtonActions action);

    velmora::sdk::integration::GLDrawArea& m_area;
    ThreedMouseDialog* m_dialog;
    boost::signals2::scoped_connection m_motions;
    boost::signals2::scoped_connection m_buttons;
};

} // namespace viewer
