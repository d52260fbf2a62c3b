#include "FakeArea.h"
#include "FakeEvents.h"
#include "FakeListeners.h"
#include "FakeManager.h"

#include "integrationmanager/KeyEventObservable.h"
#include "integrationmanager/MouseEventObservable.h"
#include "integrationmanager/MouseWheelEvent.h"
#include "interfaces/GLDrawAreaListenerInterface.h"

#include <gmock/gmock.h>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using testing::ElementsAre;

namespace {

struct NotingStateListener : public GLDrawAreaListenerInterface {
    NotingStateListener(std::string listenerName, Log& callLog) : name(std::move(listenerName)), log(callLog) {}
    void drawAreaExposed(GLDrawAreaInterface& area, bool sizeChanged) override
    {
        source = &area;
        log.push_back(name + (sizeChanged ? " exposed resized" : " exposed"));
    }
    void drawAreaDestroyed(GLDrawAreaInterface&) override { log.push_back(name + " destroyed"); }
    void drawAreaFocusGained(GLDrawAreaInterface&) override { log.push_back(name + " focus"); }
    std::string name;
    Log& log;
    GLDrawAreaInterface* source = nullptr;
};

} // namespace

TEST(MouseEventObservable, PassesEachEventToItsListeners)
{
    Log log;
    FakeManager manager;
    FakeMouseEvent event;
    FakeMouseListener first("a", log), second("b", log);
    intern::MouseEventObservable observable;
    observable.addListener(&first);
    observable.addListener(&second);
    observable.addListener(&first);
    observable.notifyOfMouseMoved(event, manager.monitor);
    observable.removeListener(&second);
    observable.notifyOfButtonPressed(event, manager.monitor);
    observable.notifyOfButtonReleased(event, manager.monitor);
    observable.notifyOfButtonDoublePressed(event, manager.monitor);
    EXPECT_THAT(log, ElementsAre("a moved", "b moved", "a pressed", "a released", "a double pressed"));
}

TEST(KeyEventObservable, PassesEachEventToItsListeners)
{
    Log log;
    FakeManager manager;
    auto event = keyEvent('A');
    FakeKeyListener listener("a", log);
    intern::KeyEventObservable observable;
    observable.addListener(&listener);
    observable.notifyOfKeyPressed(event, manager.monitor);
    observable.notifyOfKeyReleased(event, manager.monitor);
    observable.removeListener(&listener);
    observable.notifyOfKeyPressed(event, manager.monitor);
    EXPECT_THAT(log, ElementsAre("a pressed", "a released"));
}

TEST(GLDrawAreaStateObservable, PassesEachStateOfTheAreaToItsListeners)
{
    Log log;
    FakeArea area;
    NotingStateListener first("a", log), second("b", log);
    area.states.addListener(&first);
    area.states.addListener(&second);
    area.states.notifyOfExposure(true);
    area.states.removeListener(&second);
    area.states.notifyOfExposure(false);
    area.states.notifyOfFocusGained();
    area.states.notifyOfDestruction();
    EXPECT_THAT(log, ElementsAre("a exposed resized", "b exposed resized", "a exposed", "a focus", "a destroyed"));
    EXPECT_EQ(first.source, &area);
}

TEST(KeyEvent, TellsKeyModifiersAndSource)
{
    FakeManager manager;
    const intern::KeyEvent event(&manager.monitor, 65, EventInterface::Modifier_Shift | EventInterface::Modifier_Alt);
    EXPECT_EQ(event.key(), 65);
    EXPECT_EQ(event.keyboardModifiers(), 5);
    EXPECT_TRUE(event.isShiftDown());
    EXPECT_FALSE(event.isControlDown());
    EXPECT_TRUE(event.isAltDown());
    EXPECT_EQ(event.source(), &manager.monitor);
}

TEST(MouseWheelEvent, TellsWhatItWasBuiltFrom)
{
    const intern::MouseWheelEvent event(10, 20, -120, true, false, true, MouseWheelEventInterface::Orientation_Vertical,
                                        EventInterface::Modifier_Control);
    EXPECT_EQ(event.x(), 10);
    EXPECT_EQ(event.y(), 20);
    EXPECT_EQ(event.delta(), -120);
    EXPECT_TRUE(event.isLeftButtonDown());
    EXPECT_FALSE(event.isMiddleButtonDown());
    EXPECT_TRUE(event.isRightButtonDown());
    EXPECT_EQ(event.orientation(), MouseWheelEventInterface::Orientation_Vertical);
    EXPECT_TRUE(event.isControlDown());
    EXPECT_FALSE(event.isShiftDown());
}
