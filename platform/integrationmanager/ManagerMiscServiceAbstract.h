#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/ManagerMiscServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Lets the engine reach a misc service.
class VELMORA_PLATFORM_EXPORT ManagerMiscServiceAbstract : public virtual ManagerMiscServiceInterface,
                                                           public virtual ServiceInterface {
public:
    void registerCallbacks() override;
    void makeCurrent() override;
    ~ManagerMiscServiceAbstract() override;

protected:
    ManagerMiscServiceAbstract();
    ManagerMiscServiceAbstract(const ManagerMiscServiceAbstract&) = delete;
    ManagerMiscServiceAbstract& operator=(const ManagerMiscServiceAbstract&) = delete;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
