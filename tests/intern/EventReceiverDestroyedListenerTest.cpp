#include "integration/intern/EventReceiverDestroyedListener.h"

#include <QMetaMethod>
#include <gtest/gtest.h>
#include <memory>
#include <string>

using velmora::sdk::integration::intern::EventReceiverDestroyedListener;

TEST(EventReceiverDestroyedListener, CallsBackOnceWhenTheReceiverIsDestroyed)
{
    int calls = 0;
    auto receiver = std::make_unique<QObject>();
    const EventReceiverDestroyedListener listener(*receiver, [&] { ++calls; });
    EXPECT_EQ(calls, 0);
    receiver.reset();
    EXPECT_EQ(calls, 1);
}

TEST(EventReceiverDestroyedListener, DestroyingItEndsTheWatch)
{
    int calls = 0;
    auto receiver = std::make_unique<QObject>();
    auto listener = std::make_unique<EventReceiverDestroyedListener>(*receiver, [&] { ++calls; });
    listener.reset();
    receiver.reset();
    EXPECT_EQ(calls, 0);
}

TEST(EventReceiverDestroyedListener, AnEmptyCallbackThrows)
{
    QObject receiver;
    EventReceiverDestroyedListener listener(receiver, boost::function<void()>());
    EXPECT_THROW(QMetaObject::invokeMethod(&listener, "eventReceiverDestroyed", Qt::DirectConnection,
                                           Q_ARG(QObject*, &receiver)),
                 boost::bad_function_call);
}

TEST(EventReceiverDestroyedListener, HasItsFullNameAndOneSlot)
{
    QObject receiver;
    const EventReceiverDestroyedListener listener(receiver, [] {});
    const QMetaObject& meta = *listener.metaObject();
    EXPECT_STREQ(meta.className(), "velmora::sdk::integration::intern::EventReceiverDestroyedListener");
    EXPECT_EQ(meta.methodCount() - meta.methodOffset(), 1);
    EXPECT_EQ(meta.method(meta.methodOffset()).access(), QMetaMethod::Private);
}
