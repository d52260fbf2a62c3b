#pragma once

#include "engine/VelExport.h"
#include "interfaces/services/CursorShapeServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Lets the engine reach a cursor shape service.
class VELMORA_PLATFORM_EXPORT CursorShapeServiceAbstract : public virtual CursorShapeServiceInterface,
                                                           public virtual ServiceInterface {
public:
    void registerCallbacks() override;
    void makeCurrent() override;
    ~CursorShapeServiceAbstract() override;

protected:
    CursorShapeServiceAbstract();
    CursorShapeServiceAbstract(const CursorShapeServiceAbstract&) = delete;
    CursorShapeServiceAbstract& operator=(const CursorShapeServiceAbstract&) = delete;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
