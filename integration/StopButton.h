#pragma once

#include "integration/Export.h"
#include "interfaces/StopButtonInterface.h"

#include <memory>

class QAbstractButton;

namespace velmora {
namespace sdk {
namespace integration {

/// Makes a push button one whose press interrupts the busy engine.
///
/// It takes part from the moment it is registered (`getEventManager().registerStopButton` of the
/// manager) and is in force while the button is visible and enabled. The press stops the work; whether
/// `clicked()` follows depends on when the button is let go, so do nothing in it. Over the button the pointer
/// shows the ordinary arrow, whatever wait cursor is in force. It may outlive its button and is then
/// never in force. GUI thread only.
class VELMORA_INTEGRATION_EXPORT StopButton : public virtual StopButtonInterface {
public:
    /// The button stays the caller's and must not be null.
    explicit StopButton(QAbstractButton* button);
    StopButton(const StopButton&) = delete;
    StopButton& operator=(const StopButton&) = delete;
    ~StopButton() override;

    bool isActive() const override;
    bool isEqual(const void* object) const override;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
