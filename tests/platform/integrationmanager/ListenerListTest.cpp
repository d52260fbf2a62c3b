#include "AllocationCount.h"
#include "Log.h"

#include "integrationmanager/ListenerList.h"

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>

using testing::ElementsAre;
using velmora::sdk::integration::intern::ListenerList;
using velmora::tests::allocationCount;
using velmora::tests::Log;

namespace {

struct Listener {
    explicit Listener(std::string listenerName) : name(std::move(listenerName)) {}
    std::string name;
    std::function<void()> action;
};

Log notified(ListenerList<Listener>& list)
{
    Log log;
    list.notify([&log](Listener& listener) {
        log.push_back(listener.name);
        if (listener.action)
            listener.action();
    });
    return log;
}

struct ListenerListTest : public testing::Test {
    Listener a{"a"}, b{"b"}, c{"c"};
    ListenerList<Listener> list;
};

} // namespace

TEST_F(ListenerListTest, ListenersAreCalledInTheOrderTheyWereAdded)
{
    list.add(&b);
    list.add(&a);
    list.add(&c);
    EXPECT_THAT(notified(list), ElementsAre("b", "a", "c"));
}

TEST_F(ListenerListTest, AddingTwiceIsAddingOnce)
{
    list.add(&a);
    list.add(&b);
    list.add(&a);
    EXPECT_THAT(notified(list), ElementsAre("a", "b"));
    list.remove(&a);
    EXPECT_THAT(notified(list), ElementsAre("b"));
}

TEST_F(ListenerListTest, NullIsNeitherAddedNorRemoved)
{
    list.add(nullptr);
    list.add(&a);
    list.remove(nullptr);
    EXPECT_THAT(notified(list), ElementsAre("a"));
    a.action = [this] {
        list.remove(&a);
        list.remove(nullptr);
    };
    EXPECT_THAT(notified(list), ElementsAre("a"));
    EXPECT_THAT(notified(list), ElementsAre());
}

TEST_F(ListenerListTest, AListenerMayRemoveItself)
{
    a.action = [this] { list.remove(&a); };
    list.add(&a);
    list.add(&b);
    EXPECT_THAT(notified(list), ElementsAre("a", "b"));
    EXPECT_THAT(notified(list), ElementsAre("b"));
}

TEST_F(ListenerListTest, AListenerThatWasRemovedByAnotherIsNotCalledAnyMore)
{
    a.action = [this] { list.remove(&b); };
    list.add(&a);
    list.add(&b);
    list.add(&c);
    EXPECT_THAT(notified(list), ElementsAre("a", "c"));
}

TEST_F(ListenerListTest, AListenerAddedDuringANotificationIsCalledFromTheNextOneOn)
{
    a.action = [this] { list.add(&c); };
    list.add(&a);
    EXPECT_THAT(notified(list), ElementsAre("a"));
    EXPECT_THAT(notified(list), ElementsAre("a", "c"));
}

TEST_F(ListenerListTest, AListenerThatComesBackDuringANotificationIsThereOnce)
{
    a.action = [this] {
        list.remove(&a);
        list.add(&a);
        a.action = nullptr;
    };
    list.add(&a);
    list.add(&b);
    EXPECT_THAT(notified(list), ElementsAre("a", "b"));
    EXPECT_THAT(notified(list), ElementsAre("b", "a"));
}

TEST_F(ListenerListTest, RemovingInANestedNotificationHoldsInTheOuterOne)
{
    a.action = [this] {
        a.action = [this] { list.remove(&b); };
        EXPECT_THAT(notified(list), ElementsAre("a", "c"));
    };
    list.add(&a);
    list.add(&b);
    list.add(&c);
    EXPECT_THAT(notified(list), ElementsAre("a", "c"));
}

TEST_F(ListenerListTest, AnExceptionOfAListenerPassesAndLeavesTheListUsable)
{
    a.action = [this] {
        list.remove(&a);
        throw std::runtime_error("listener");
    };
    list.add(&a);
    list.add(&b);
    EXPECT_THROW(notified(list), std::runtime_error);
    EXPECT_THAT(notified(list), ElementsAre("b"));
}

TEST_F(ListenerListTest, NotifyingAllocatesNothing)
{
    list.add(&a);
    list.add(&b);
    int called = 0;
    const long before = allocationCount();
    list.notify([&called](Listener&) { ++called; });
    EXPECT_EQ(allocationCount(), before);
    EXPECT_EQ(called, 2);
}
