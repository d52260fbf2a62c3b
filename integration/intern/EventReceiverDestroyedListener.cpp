#include "integration/intern/EventReceiverDestroyedListener.h"

namespace velmora::sdk::integration::intern {

EventReceiverDestroyedListener::EventReceiverDestroyedListener(const QObject& receiver,
                                                               boost::function<void()> callback)
    : m_callback(callback)
{
    connect(&receiver, SIGNAL(destroyed(QObject*)), this, SLOT(eventReceiverDestroyed(QObject*)));
}

void EventReceiverDestroyedListener::eventReceiverDestroyed(QObject*)
{
    m_callback();
}

} // namespace velmora::sdk::integration::intern
