#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/SelectFileServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Lets the engine reach a file selection service.
class VELMORA_PLATFORM_EXPORT SelectFileServiceAbstract : public virtual SelectFileServiceInterface,
                                                          public virtual ServiceInterface {
public:
    void registerCallbacks() override;
    void makeCurrent() override;
    ~SelectFileServiceAbstract() override;

protected:
    SelectFileServiceAbstract();
    SelectFileServiceAbstract(const SelectFileServiceAbstract&) = delete;
    SelectFileServiceAbstract& operator=(const SelectFileServiceAbstract&) = delete;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
