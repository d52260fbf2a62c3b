#include "integration/intern/EventReceiverDestroyedListener.h"

#include <utility>

namespace velmora::sdk::integration::intern {

EventReceiverDestroyedListener::EventReceiverDestroyedListener(const QObject& receiver,
                                                               boost::function<void()> callback)
    : m_callback(std::move(callback))
{
    connect(&receiver, SIGNAL(destroyed(QObject*)), this, SLOT(eventReceiverDestroyed(QObject*)));
}

void EventReceiverDestroyedListener::eventReceiverDestroyed(QObject*)
{
    m_callback();
}

} // namespace velmora::sdk::integration::intern
