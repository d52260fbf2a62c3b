#include "tests/applications/preload/EngineHost.h"

#include "base/AppLock.h"
#include "engine/VelUtil.h"
#include "integration/HeldBackEvents.h"
#include "integration/Manager.h"
#include "integration/StyleSettings.h"
#include "toolbox/StyleValue.h"

#include <stdexcept>
#include <utility>

namespace velmora::test {

using sdk::integration::Manager;

namespace {

constexpr int MillisecondsUntilFirstWork = 200;
constexpr int MillisecondsBetweenWork = 2000; // from beginning to beginning
// Each portion of the reading takes a slice of its own.
constexpr int ExtraMicrosecondsPerPortion = 4000;

void makeWorkLast()
{
    const sdk::AppLock lock(sdk::AppLock::ImplicitMacroRecording::Off);
    sdk::integration::writeStyleInteger(toolbox::StyleValue("Interface"), "DrawingDelay", ExtraMicrosecondsPerPortion);
}

void chooseWhatIsHeldBack(const std::string& heldBack)
{
    if (heldBack == "everything")
        sdk::integration::setHeldBackEvents(sdk::integration::HeldBackEvents_All);
    else if (heldBack == "input")
        sdk::integration::setHeldBackEvents(sdk::integration::HeldBackEvents_Input);
    else
        throw std::runtime_error("The monitor cannot hold back \"" + heldBack + "\".");
}

} // namespace

EngineHost::EngineHost(std::string data, const std::string& heldBack) : m_data(std::move(data))
{
    char name[] = "host";
    char* const arguments[] = {name, nullptr};
    Manager& manager = Manager::getInstance();
    sdk::integration::ManagerStartReturnCode_e code = manager.init(1, arguments, "", name);
    if (code == sdk::integration::ManagerStartReturnCode_Ok)
        code = manager.start();
    if (code != sdk::integration::ManagerStartReturnCode_Ok)
        throw std::runtime_error(manager.returnCodeString(code));
    chooseWhatIsHeldBack(heldBack);
    makeWorkLast();
}

EngineHost::~EngineHost()
{
    Manager::getInstance().stop();
}

void EngineHost::setWorking(bool working)
{
    if (m_timer != 0)
        killTimer(m_timer);
    m_timer = working ? startTimer(MillisecondsUntilFirstWork) : 0;
}

void EngineHost::timerEvent(QTimerEvent*)
{
    killTimer(m_timer);
    m_timer = startTimer(MillisecondsBetweenWork);
    // The application's turn delivers timers, too.
    if (VelUtilIsBusy() != 0)
        return;
    ++m_works;
    if (VelUtilDataLoad(m_data.c_str()) == 0)
        m_interrupted += VelUtilWasInterrupted();
}

std::string EngineHost::done() const
{
    return std::to_string(m_works) + ' ' + std::to_string(m_interrupted);
}

} // namespace velmora::test
