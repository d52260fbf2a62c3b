#pragma once

#include "engine/VelExport.h"

#include <memory>

namespace velmora {
namespace sdk {
namespace integration {

class GLDrawAreaInterface;
class GLDrawAreaListenerInterface;

namespace intern {

/// Keeps the state listeners of one drawing area and notifies them in the order they were added.
class VELMORA_PLATFORM_EXPORT GLDrawAreaStateObservable {
public:
    /// For the area that owns it.
    explicit GLDrawAreaStateObservable(GLDrawAreaInterface& area);
    ~GLDrawAreaStateObservable();
    GLDrawAreaStateObservable(const GLDrawAreaStateObservable&) = delete;
    GLDrawAreaStateObservable& operator=(const GLDrawAreaStateObservable&) = delete;

    /// Adding a listener twice has no further effect; null is ignored. Listeners are borrowed.
    void addListener(GLDrawAreaListenerInterface* listener);
    /// A listener that was not added is ignored.
    void removeListener(GLDrawAreaListenerInterface* listener);

    /// @{
    /// Tells the listeners what the name says. What one throws ends the round and passes through.
    void notifyOfDestruction();
    void notifyOfExposure(bool sizeChanged);
    void notifyOfFocusGained();
    /// @}

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
