#pragma once

#include <QString>
#include <QStringList>
#include <memory>

namespace velmora {
namespace sdk {
namespace integration {
namespace services {
class SelectRegionService;
}
} // namespace integration
} // namespace sdk
} // namespace velmora

namespace viewer {

/// Runs the engine for the life of the object. Make it after the QApplication and before any
/// drawing area, and let every drawing area go before it.
class EngineSession {
public:
    EngineSession(int argc, char** argv);
    ~EngineSession();
    EngineSession(const EngineSession&) = delete;
    EngineSession& operator=(const EngineSession&) = delete;

    /// Why the engine does not run; empty when it does.
    QString error() const { return m_error; }

    /// Makes all drawing slow, so that a person can try out interrupting it.
    void makeDrawingSlow();
    /// Loads modules with contents of other makers; what is wrong with the first that cannot be, or "".
    static QString loadModules(const QStringList& modules);
    /// The engine's paper, by the place of its name in paperNames(). What is loaded from now on fills it.
    void setPaper(int index, bool landscape);
    static QStringList paperNames();

private:
    std::unique_ptr<velmora::sdk::integration::services::SelectRegionService> m_selectRegion;
    QString m_error;
};

} // namespace viewer
