#pragma once

#include "integration/Export.h"
#include "integration/intern/Mouse3DInput.h"
#include "integrationmanager/ManagerAbstract.h"

#include <memory>
#include <string>

namespace velmora {
namespace sdk {
namespace integration {

/// The one object through which a Qt application starts and stops the visualisation engine.
///
/// A host calls `Manager::getInstance()`, one of the inherited `init`, `start()` once its
/// QApplication exists, runs its event loop and calls `stop()` at the end. The manager completes the
/// engine's own manager with the watch over the application's events and with five services:
/// message boxes, file selection, cursors, small facts and off-screen images. A host that offers
/// rubber-band selection adds a services::SelectRegionService itself.
///
/// GUI thread only, the first `getInstance()` included: what watches the application's events belongs
/// to the thread that constructs it. The manager is destroyed at process exit and does not stop the
/// engine then: that is the host's business.
class VELMORA_INTEGRATION_EXPORT Manager : public virtual ManagerAbstract {
public:
    ~Manager() override;

    /// The manager, constructed by the first call. What its construction throws passes through, and
    /// the next call tries again. A first call on another thread than the application object's throws
    /// velmora::ExceptionBase. Before there is an application object this cannot be checked: the caller
    /// then sees to it that the application object is made on the same thread.
    static Manager& getInstance();

    ApplicationEventMonitorInterface& getApplicationEventMonitor() override;

    /// Begins to listen to a 3D mouse, for as long as `widget` lives; a call later looks again for what is not there
    /// now. Its motions and buttons come through the signals of the event monitor's MouseEventObservableInterface
    /// (`connectThreedMouseMotionEvent` and the others). Call it when there is a QApplication; see
    /// threedmouse::startListeningForEvents for the rest. No device, library or daemon is no error: the state tells.
    threedmouse::DeviceState_e startThreedMouse(const std::string& deviceName, const QWidget& widget);

protected:
    // Here only to make this class the final overrider; the engine's manager does the work.
    void subManagersInstantiate() override;
    void subManagersRegisterCallbacks() override;
    void subManagersDestroy() override;

private:
    Manager();

    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
