// The view, moved with a 3D mouse. A stand-in for its daemon says what the device does.

#include "tests/viewer/OpenViewer.h"

#include "ThreedMouseNavigation.h"
#include "engine/VelUtil.h"
#include "integration/intern/Mouse3DInput.h"
#include "tests/support/SpacenavDaemon.h"
#include "tests/support/Wait.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSlider>

using namespace velmora::test;
namespace threedmouse = velmora::sdk::threedmouse;

namespace {

const char* const Middle = "rising = 10, x = 20";
constexpr int SampleCount = 20;
constexpr int Period = 10; // of milliseconds: 0.2 seconds in all
constexpr int Full = 350;

/// The daemon is there before the viewer is.
struct Daemon {
    SpacenavDaemon daemon;
};

class ViewedWithThreedMouse : private Daemon, public OpenViewer {
protected:
    ViewedWithThreedMouse()
    {
        EXPECT_TRUE(waitUntil([] { return threedmouse::deviceState() == threedmouse::DeviceState_Connected; }));
        EXPECT_TRUE(daemon.waitForClient());
        m_end = viewer::threedMouse().connectThreedMouseMotionEventEnd([this] { ++m_ends; });
    }
    ~ViewedWithThreedMouse() override
    {
        daemon.kill();
        EXPECT_TRUE(waitUntil([] { return threedmouse::deviceState() != threedmouse::DeviceState_Connected; }));
    }

    static std::string view() { return VelUtilViewState(); }
    void send(int x, int y, int z, int rx, int ry, int rz) { daemon.sendMotion(x, y, z, rx, ry, rz, Period); }
    /// A motion from rest to rest.
    void moveDevice(int x, int y, int z, int rx = 0, int ry = 0, int rz = 0)
    {
        for (int sample = 0; sample < SampleCount; ++sample)
            send(x, y, z, rx, ry, rz);
        daemon.sendRest();
        const int ends = m_ends + 1;
        EXPECT_TRUE(waitUntil([&] { return m_ends == ends; }));
        EXPECT_TRUE(settle());
    }
    void pressDeviceButton(int number)
    {
        const std::string before = view();
        daemon.sendButton(number, true);
        daemon.sendButton(number, false);
        EXPECT_TRUE(waitUntil([&] { return view() != before; }));
    }
    template <typename Widget>
    Widget& inDialog(const char* name)
    {
        return *window->findChild<Widget*>(name);
    }

    SpacenavDaemon& device() { return daemon; }

private:
    boost::signals2::scoped_connection m_end;
    int m_ends = 0;
};

} // namespace

TEST_F(ViewedWithThreedMouse, TurningTheDeviceTurnsTheSurfaceAndThePersonSeesItMeanwhile)
{
    open(folder.writeGrid());
    const QImage before = picture();
    send(0, 0, 0, 0, Full, 0);
    EXPECT_TRUE(waitUntil([&] {
        send(0, 0, 0, 0, Full, 0);
        return differ(before, shown());
    }));
    EXPECT_TRUE(threedmouse::isProcessingThreedMouseEvents());
    device().sendRest();
    EXPECT_TRUE(settle());
    EXPECT_TRUE(VelUtilPageIsComplete());
}

TEST_F(ViewedWithThreedMouse, PushingTheDeviceMovesLinesByWhatDeflectionAndTimeComeTo)
{
    open(folder.writeTable());
    const QPoint before = placeOf(Middle);
    ASSERT_FALSE(before.isNull());
    moveDevice(Full, -Full / 2, 0);
    const QPoint after = placeOf(Middle);
    ASSERT_FALSE(after.isNull());
    EXPECT_NEAR(after.x() - before.x(), 100, 4) << "0.2 seconds of 500 pixels";
    EXPECT_NEAR(after.y() - before.y(), 50, 4) << "down";
}

TEST_F(ViewedWithThreedMouse, PullingTheDeviceNearerZoomsIn)
{
    open(folder.writeTable());
    const QPoint before = placeOf(Middle) - centre();
    moveDevice(0, 0, -Full);
    const QPoint after = placeOf(Middle) - centre();
    EXPECT_NEAR(after.x(), before.x() * 1.32, 4) << "a fifth of a second of a factor 4";
}

TEST_F(ViewedWithThreedMouse, TheFirstButtonShowsAllAndTheSecondResets)
{
    open(folder.writeGrid());
    const std::string first = view();
    moveDevice(Full, 0, 0, Full / 3, Full, 0);
    EXPECT_NE(view(), first);
    pressDeviceButton(0);
    EXPECT_NE(view(), first) << "shown from where it was seen";
    pressDeviceButton(1);
    EXPECT_EQ(view(), first);
}

TEST_F(ViewedWithThreedMouse, WhatTheDialogSaysHoldsAtOnceAndIsKept)
{
    open(folder.writeTable());
    const QPoint before = placeOf(Middle);
    action("&3D Mouse...")->trigger();
    inDialog<QCheckBox>("moveReversed").click();
    inDialog<QSlider>("speed").setValue(3);
    inDialog<QCheckBox>("zoom").click();
    moveDevice(Full, 0, -Full);
    EXPECT_NEAR(placeOf(Middle).x() - before.x(), -50, 4) << "half as fast, to the left, and no nearer";
    EXPECT_FALSE(inDialog<QCheckBox>("zoomReversed").isEnabled());
    const QSettings settings;
    EXPECT_EQ(settings.value("threedMouse/speed").toInt(), 3);
    EXPECT_TRUE(settings.value("threedMouse/moveReversed").toBool());
    EXPECT_FALSE(settings.value("threedMouse/zoom").toBool());
    EXPECT_TRUE(settings.value("threedMouse/turn").toBool());
}

TEST_F(ViewedWithThreedMouse, WithTheAxesSwappedPressingItDownZooms)
{
    open(folder.writeTable());
    const QPoint before = placeOf(Middle) - centre();
    inDialog<QCheckBox>("swap").setChecked(true);
    moveDevice(0, Full, 0);
    EXPECT_NEAR((placeOf(Middle) - centre()).x(), before.x() * 1.32, 4);
    moveDevice(0, -Full, 0);
    EXPECT_NEAR((placeOf(Middle) - centre()).x(), before.x(), 4);
}

TEST_F(ViewedWithThreedMouse, TheDialogTellsWhetherTheServiceIsThereAndLooksAgain)
{
    action("&3D Mouse...")->trigger();
    const QLabel& state = inDialog<QLabel>("state");
    EXPECT_TRUE(state.text().startsWith("Connected"));
    device().kill();
    EXPECT_TRUE(waitUntil([] { return threedmouse::deviceState() == threedmouse::DeviceState_Lost; }));
    action("&3D Mouse...")->trigger();
    EXPECT_TRUE(state.text().contains("has ended")) << state.text().toStdString();
    device().restart();
    button("&Look Again")->click();
    EXPECT_TRUE(state.text().startsWith("Connected"));
}
