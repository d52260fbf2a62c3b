#include "ThreedMouseNavigation.h"

#include "ScreenPixels.h"
#include "ThreedMouseDialog.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"
#include "interfaces/ApplicationEventMonitorInterface.h"

#include <QMenu>
#include <QTimer>
#include <cmath>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

// In a second, at full deflection and the usual speed.
constexpr double DegreesPerSecond = 120.0;
constexpr double PixelsPerSecond = 500.0; // of the area's
constexpr double ZoomPerSecond = 4.0;     // a factor

constexpr int ButtonToShowAll = 0;
constexpr int ButtonToReset = 1;

/// What is wanted of a motion: deflection times seconds, in each direction.
struct WantedMotion {
    double along[3];
    double about[3];
};

WantedMotion wantedOf(const MouseEventObservableInterface::MotionData& motion, const ThreedMouseSettings& settings)
{
    const double seconds = double(motion.elapsedMilliseconds) / 1000.0 * settings.speedFactor();
    WantedMotion wanted;
    for (int axis = 0; axis < 3; ++axis) {
        const int source = settings.swapsYAndZ && axis > 0 ? 3 - axis : axis;
        wanted.along[axis] = motion.translation[source] * seconds;
        wanted.about[axis] = motion.rotation[source] * seconds;
    }
    return wanted;
}

/// Nothing where it is not used.
double inDirectionOf(const ThreedMouseSettings::Motion& motion, double amount)
{
    if (!motion.isUsed)
        return 0.0;
    return motion.isReversed ? -amount : amount;
}

// A view that does not change is not drawn anew: the calls below are for what is not 0.

void turn(double aboutVertical, double tilt)
{
    if (aboutVertical != 0.0 || tilt != 0.0)
        VelUtilViewRotate(aboutVertical * DegreesPerSecond, tilt * DegreesPerSecond);
}

void translate(double right, double up, const GLDrawArea& area)
{
    const double pixels = PixelsPerSecond * screenPixelsPerPixel(area);
    if (right != 0.0 || up != 0.0)
        VelUtilViewTranslate(right * pixels, -up * pixels);
}

void zoom(double nearer, const GLDrawArea& area)
{
    const QSize size = screenSize(area);
    if (nearer != 0.0)
        VelUtilViewZoom(std::pow(ZoomPerSecond, nearer), size.width() / 2.0, size.height() / 2.0);
}

} // namespace

MouseEventObservableInterface& threedMouse()
{
    return dynamic_cast<MouseEventObservableInterface&>(Manager::getInstance().getApplicationEventMonitor());
}

ThreedMouseNavigation::ThreedMouseNavigation(QMenu& menu, GLDrawArea& area)
    : QObject(&area), m_area(area), m_dialog(new ThreedMouseDialog(area.window()))
{
    menu.addAction(tr("&3D Mouse..."), this, SLOT(present()));
    connect(m_dialog, SIGNAL(lookedFor()), this, SLOT(lookForDevice()));
    m_motions = threedMouse().connectThreedMouseMotionEvent([this](const MotionData& motion) { move(motion); });
    m_buttons = threedMouse().connectThreedMouseButtonActionEvent([this](ButtonActions action) { act(action); });
    // When the window shows: an old service keeps a program waiting for a moment.
    QTimer::singleShot(0, this, SLOT(lookForDevice()));
}

void ThreedMouseNavigation::lookForDevice()
{
    Manager::getInstance().startThreedMouse(std::string(), m_area);
}

void ThreedMouseNavigation::present()
{
    m_dialog->showState();
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void ThreedMouseNavigation::move(const MotionData& motion)
{
    const ThreedMouseSettings settings = m_dialog->settings();
    const WantedMotion wanted = wantedOf(motion, settings);
    turn(inDirectionOf(settings.turn, wanted.about[1]), inDirectionOf(settings.turn, wanted.about[0]));
    translate(inDirectionOf(settings.move, wanted.along[0]), inDirectionOf(settings.move, wanted.along[1]), m_area);
    zoom(inDirectionOf(settings.zoom, wanted.along[2]), m_area);
}

void ThreedMouseNavigation::act(ButtonActions action)
{
    if (!action.pressed)
        return;
    if (action.button == ButtonToShowAll)
        VelUtilViewShowAll();
    else if (action.button == ButtonToReset)
        VelUtilViewFit();
}

} // namespace viewer
