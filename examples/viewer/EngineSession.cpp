#include "EngineSession.h"

#include "Settings.h"
#include "base/AppLock.h"
#include "engine/VelContent.h"
#include "exception/ExceptionBase.h"
#include "integration/Manager.h"
#include "integration/services/SelectRegionService.h"
#include "interfaces/ServiceRepositoryInterface.h"

#include <QFile>

namespace viewer {

using namespace velmora::sdk::integration;

// The manager brings all services but the one for rubber bands; a host that has them adds it.
EngineSession::EngineSession(int argc, char** argv) : m_selectRegion(new services::SelectRegionService)
{
    Manager& manager = Manager::getInstance();
    manager.getServiceRepository().addService(*m_selectRegion);
    ManagerStartReturnCode_e code = manager.init(argc, argv, std::string(), "Viewer");
    if (code == ManagerStartReturnCode_Ok)
        code = manager.start();
    if (code != ManagerStartReturnCode_Ok)
        m_error = QString::fromUtf8(manager.returnCodeString(code).c_str());
}

EngineSession::~EngineSession()
{
    Manager::getInstance().stop();
}

void EngineSession::makeDrawingSlow()
{
    constexpr int ExtraMicrosecondsPerPortion = 4000;
    const velmora::sdk::AppLock lock(velmora::sdk::AppLock::ImplicitMacroRecording::Off);
    writeSetting("Interface", "DrawingDelay", ExtraMicrosecondsPerPortion);
}

QString EngineSession::loadModules(const QStringList& modules)
{
    try {
        for (const QString& module : modules)
            velmora::content::loadModule(QFile::encodeName(module).constData());
    } catch (const velmora::ExceptionBase& error) {
        return QString::fromUtf8(error.what());
    }
    return QString();
}

void EngineSession::setPaper(int index, bool landscape)
{
    const velmora::sdk::AppLock lock(velmora::sdk::AppLock::ImplicitMacroRecording::Off);
    writeSetting("Paper", "PaperSize", index);
    writeSetting("Paper", "OrientPortrait", landscape ? 0 : 1);
}

QStringList EngineSession::paperNames()
{
    return QString::fromLatin1("Letter Double A4 A3 Custom1 Custom2").split(QLatin1Char(' '));
}

} // namespace viewer
