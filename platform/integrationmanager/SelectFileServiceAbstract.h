#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/SelectFileServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora::sdk::integration::services {

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

} // namespace velmora::sdk::integration::services
