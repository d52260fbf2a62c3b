#include "integrationmanager/KeyEventObservable.h"

#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/ListenerList.h"
#include "interfaces/KeyEventListenerInterface.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::intern {

struct KeyEventObservable::Impl {
    ListenerList<KeyEventListenerInterface> listeners;
};

KeyEventObservable::KeyEventObservable() : m_impl(std::make_unique<Impl>())
{
    velmora::testing::EngineProbe::passPoint("KeyEventObservable");
}

KeyEventObservable::~KeyEventObservable()
{
    noteDestruction("KeyEventObservable");
}

void KeyEventObservable::addListener(KeyEventListenerInterface* listener)
{
    m_impl->listeners.add(listener);
}

void KeyEventObservable::removeListener(KeyEventListenerInterface* listener)
{
    m_impl->listeners.remove(listener);
}

void KeyEventObservable::notifyOfKeyPressed(KeyEventInterface& event, KeyEventObservableInterface& source)
{
    m_impl->listeners.notify([&](KeyEventListenerInterface& listener) { listener.keyPressed(event, source); });
}

void KeyEventObservable::notifyOfKeyReleased(KeyEventInterface& event, KeyEventObservableInterface& source)
{
    m_impl->listeners.notify([&](KeyEventListenerInterface& listener) { listener.keyReleased(event, source); });
}

} // namespace velmora::sdk::integration::intern
