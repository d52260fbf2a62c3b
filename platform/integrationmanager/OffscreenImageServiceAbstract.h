#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/OffscreenImageServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Lets the engine reach an off-screen image service.
class VELMORA_PLATFORM_EXPORT OffscreenImageServiceAbstract : public virtual OffscreenImageServiceInterface,
                                                              public virtual ServiceInterface {
public:
    void registerCallbacks() override;
    void makeCurrent() override;
    ~OffscreenImageServiceAbstract() override;

protected:
    OffscreenImageServiceAbstract();
    OffscreenImageServiceAbstract(const OffscreenImageServiceAbstract&) = delete;
    OffscreenImageServiceAbstract& operator=(const OffscreenImageServiceAbstract&) = delete;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
