#pragma once

#include "engine/VelExport.h"

#include <memory>

namespace velmora::sdk::integration {

class GLDrawAreaInterface;
class GLDrawAreaListenerInterface;

namespace intern {

/// Keeps the state listeners of one drawing area and notifies them in the order they were added.
class VELMORA_PLATFORM_EXPORT GLDrawAreaStateObservable {
public:
    explicit GLDrawAreaStateObservable(GLDrawAreaInterface& area);
    ~GLDrawAreaStateObservable();
    GLDrawAreaStateObservable(const GLDrawAreaStateObservable&) = delete;
    GLDrawAreaStateObservable& operator=(const GLDrawAreaStateObservable&) = delete;

    void addListener(GLDrawAreaListenerInterface* listener);
    void removeListener(GLDrawAreaListenerInterface* listener);

    void notifyOfDestruction();
    void notifyOfExposure(bool sizeChanged);
    void notifyOfFocusGained();

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace intern
} // namespace velmora::sdk::integration
