// With what the application is given its turn while the engine works.
#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"

#include "ToolkitDispatcher.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gmock/gmock.h>
#include <vector>

using velmora::sdk::integration::Manager;
using velmora::sdk::integration::intern::ApplicationEventMonitorAbstract;

namespace {

std::vector<int> turns;

/// Writes down what it is asked to process, and processes nothing.
class RecordingDispatcher : public velmora::test::ToolkitDispatcher {
public:
    bool processEvents(QEventLoop::ProcessEventsFlags flags) override
    {
        turns.push_back(static_cast<int>(flags));
        return false;
    }
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    bool unregisterTimer(int) override { return true; }
    bool unregisterTimers(QObject*) override { return true; }
    QList<TimerInfo> registeredTimers(QObject*) const override { return QList<TimerInfo>(); }
    void wakeUp() override {}
    void interrupt() override {}
};

} // namespace

TEST(ProcessWhileBusy, ProcessesEventsOnceWithTheFlagOfARunningLoop)
{
    auto& monitor = dynamic_cast<ApplicationEventMonitorAbstract&>(Manager::getInstance().getApplicationEventMonitor());
    turns.clear();
    monitor.processWhileBusy_Internal();
    EXPECT_THAT(turns, ::testing::ElementsAre(0x20));
    static_assert(QEventLoop::EventLoopExec == 0x20, "the flag that the toolkit's own loops pass");
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    velmora::test::makeApplicationUse(*new RecordingDispatcher); // the application object's from here on
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
