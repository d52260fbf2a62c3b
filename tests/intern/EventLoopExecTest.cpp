// With what the application is given its turn while the engine works.
#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"

#include "RecordingDispatcher.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gmock/gmock.h>

using velmora::sdk::integration::Manager;
using velmora::sdk::integration::intern::ApplicationEventMonitorAbstract;
using velmora::test::RecordingDispatcher;

TEST(ProcessWhileBusy, ProcessesEventsOnceWithTheFlagOfARunningLoop)
{
    auto& monitor = dynamic_cast<ApplicationEventMonitorAbstract&>(Manager::getInstance().getApplicationEventMonitor());
    auto& turns = RecordingDispatcher::turns();
    turns.clear();
    monitor.processWhileBusy_Internal();
    EXPECT_THAT(turns, ::testing::ElementsAre(0x20));
    static_assert(QEventLoop::EventLoopExec == 0x20, "the flag that the toolkit's own loops pass");
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    QCoreApplication::setEventDispatcher(new RecordingDispatcher); // the application object's from here on
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
