#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/SelectRegionServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Lets the engine reach a region selection service.
class VELMORA_PLATFORM_EXPORT SelectRegionServiceAbstract : public virtual SelectRegionServiceInterface,
                                                            public virtual ServiceInterface {
public:
    void registerCallbacks() override;
    void makeCurrent() override;
    ~SelectRegionServiceAbstract() override;

protected:
    SelectRegionServiceAbstract();
    SelectRegionServiceAbstract(const SelectRegionServiceAbstract&) = delete;
    SelectRegionServiceAbstract& operator=(const SelectRegionServiceAbstract&) = delete;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
