#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/MessageBoxServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Lets the engine reach a message box service.
class VELMORA_PLATFORM_EXPORT MessageBoxServiceAbstract : public virtual MessageBoxServiceInterface,
                                                          public virtual ServiceInterface {
public:
    void registerCallbacks() override;
    void makeCurrent() override;
    ~MessageBoxServiceAbstract() override;

protected:
    MessageBoxServiceAbstract();
    MessageBoxServiceAbstract(const MessageBoxServiceAbstract&) = delete;
    MessageBoxServiceAbstract& operator=(const MessageBoxServiceAbstract&) = delete;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
