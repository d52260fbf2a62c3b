#include "integrationmanager/MouseEventObservable.h"

#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/ListenerList.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::intern {

struct MouseEventObservable::Impl {
    ListenerList<MouseEventListenerInterface> listeners;
};

MouseEventObservable::MouseEventObservable() : m_impl(std::make_unique<Impl>())
{
    velmora::testing::EngineProbe::passPoint("MouseEventObservable");
}

MouseEventObservable::~MouseEventObservable()
{
    noteDestruction("MouseEventObservable");
}

void MouseEventObservable::addListener(MouseEventListenerInterface* listener)
{
    m_impl->listeners.add(listener);
}

void MouseEventObservable::removeListener(MouseEventListenerInterface* listener)
{
    m_impl->listeners.remove(listener);
}

void MouseEventObservable::notifyOfMouseMoved(MouseEventInterface& event, MouseEventObservableInterface& source)
{
    m_impl->listeners.notify([&](MouseEventListenerInterface& listener) { listener.mouseMoved(event, source); });
}

void MouseEventObservable::notifyOfButtonPressed(MouseEventInterface& event, MouseEventObservableInterface& source)
{
    m_impl->listeners.notify([&](MouseEventListenerInterface& listener) { listener.buttonPressed(event, source); });
}

void MouseEventObservable::notifyOfButtonReleased(MouseEventInterface& event, MouseEventObservableInterface& source)
{
    m_impl->listeners.notify([&](MouseEventListenerInterface& listener) { listener.buttonReleased(event, source); });
}

void MouseEventObservable::notifyOfButtonDoublePressed(MouseEventInterface& event,
                                                       MouseEventObservableInterface& source)
{
    m_impl->listeners.notify(
        [&](MouseEventListenerInterface& listener) { listener.buttonDoublePressed(event, source); });
}

} // namespace velmora::sdk::integration::intern
