#pragma once

#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "interfaces/OnIdleListenerInterface.h"
#include "testing/EngineProbe.h"
#include "tests/support/SpacenavDaemon.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace velmora::test {

/// A host with a running engine and a window in front, that listens to the 3D mouse of a stand-in for the daemon.
class ThreedMouse : public ::testing::Test, private sdk::integration::OnIdleListenerInterface {
protected:
    using MotionData = sdk::integration::MouseEventObservableInterface::MotionData;
    using ButtonActions = sdk::integration::MouseEventObservableInterface::ButtonActions;

    ThreedMouse();
    ~ThreedMouse() override;

    sdk::threedmouse::DeviceState_e startListening() { return manager().startThreedMouse("device", *window); }
    /// A daemon of the protocol, to which the host has connected.
    void connectTo(int protocol);
    /// The daemon that was connected to ends, and the host hears of it.
    void killDaemon();

    static sdk::integration::Manager& manager() { return sdk::integration::Manager::getInstance(); }
    static sdk::integration::intern::ApplicationEventMonitorAbstract& monitor();
    /// The application's turns of a busy engine, until the condition holds; whether it does.
    static bool workUntil(const std::function<bool()>& condition);

    /// What was told: "motion", "end", "down 1", "up 1".
    bool hasHeard(const std::string& entry) const { return timesHeard(entry) > 0; }
    int timesHeard(const std::string& entry) const;
    bool waitToHear(const std::string& entry)
    {
        return waitUntil([&] { return hasHeard(entry); });
    }
    /// Idle time is announced again and again, whatever waits.
    bool waitForIdle();
    /// What the device sends from here on is heard behind all that it sent before.
    void sendMark();

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::unique_ptr<SpacenavDaemon> daemon;
    std::vector<std::string> heard;
    std::vector<MotionData> motions;
    std::function<void()> onMotion;
    int timesIdle = 0;

private:
    void onIdle(sdk::integration::OnIdleObservableInterface&) override { ++timesIdle; }

    boost::signals2::scoped_connection m_motion;
    boost::signals2::scoped_connection m_end;
    boost::signals2::scoped_connection m_button;
};

/// The same, connected.
class ThreedMouseOfProtocol1 : public ThreedMouse {
protected:
    ThreedMouseOfProtocol1() { connectTo(1); }

    /// Begins a motion of which the host hears.
    void beginMotion()
    {
        daemon->sendMotion(100, 0, 0, 0, 0, 0);
        ASSERT_TRUE(waitToHear("motion"));
    }
};

} // namespace velmora::test
