#include "integrationmanager/GLDrawAreaStateObservable.h"

#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/ListenerList.h"
#include "interfaces/GLDrawAreaInterface.h"
#include "interfaces/GLDrawAreaListenerInterface.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::intern {

struct GLDrawAreaStateObservable::Impl {
    explicit Impl(GLDrawAreaInterface& drawArea) : area(drawArea) {}

    GLDrawAreaInterface& area;
    ListenerList<GLDrawAreaListenerInterface> listeners;
};

GLDrawAreaStateObservable::GLDrawAreaStateObservable(GLDrawAreaInterface& area) : m_impl(std::make_unique<Impl>(area))
{
    velmora::testing::EngineProbe::passPoint("GLDrawAreaStateObservable");
}

GLDrawAreaStateObservable::~GLDrawAreaStateObservable()
{
    noteDestruction("GLDrawAreaStateObservable");
}

void GLDrawAreaStateObservable::addListener(GLDrawAreaListenerInterface* listener)
{
    m_impl->listeners.add(listener);
}

void GLDrawAreaStateObservable::removeListener(GLDrawAreaListenerInterface* listener)
{
    m_impl->listeners.remove(listener);
}

void GLDrawAreaStateObservable::notifyOfDestruction()
{
    m_impl->listeners.notify(
        [this](GLDrawAreaListenerInterface& listener) { listener.drawAreaDestroyed(m_impl->area); });
}

void GLDrawAreaStateObservable::notifyOfExposure(bool sizeChanged)
{
    m_impl->listeners.notify(
        [&](GLDrawAreaListenerInterface& listener) { listener.drawAreaExposed(m_impl->area, sizeChanged); });
}

void GLDrawAreaStateObservable::notifyOfFocusGained()
{
    m_impl->listeners.notify(
        [this](GLDrawAreaListenerInterface& listener) { listener.drawAreaFocusGained(m_impl->area); });
}

} // namespace velmora::sdk::integration::intern
