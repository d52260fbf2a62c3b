#include "integration/InterruptSuspender.h"

#include "integration/Manager.h"
#include "integration/NullStopButton.h"
#include "interfaces/EventManagerInterface.h"

#include <boost/make_shared.hpp>

namespace velmora::sdk::integration {

InterruptSuspender::InterruptSuspender() : m_stopButton(boost::make_shared<NullStopButton>())
{
    Manager::getInstance().getEventManager().registerStopButton(m_stopButton);
}

InterruptSuspender::~InterruptSuspender()
{
    Manager::getInstance().getEventManager().unRegisterStopButton(m_stopButton);
}

} // namespace velmora::sdk::integration
