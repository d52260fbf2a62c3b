#pragma once

#include "interfaces/GLDrawAreaInterface.h"

namespace velmora::test {

/// A drawing area that announces nothing: it keeps no listener.
class SilentArea : public virtual sdk::integration::GLDrawAreaInterface {
public:
    void addStateListener(sdk::integration::GLDrawAreaListenerInterface*) override {}
    void removeStateListener(sdk::integration::GLDrawAreaListenerInterface*) override {}
    void signalDrawAreaExposedConnected() const override {}
    void signalDrawAreaDestroyedConnected() const override {}
    void signalDrawAreaFocusGainedConnected() const override {}
    void setPageManager(sdk::integration::PageManagerInterface&) override {}
    void addMouseListener(sdk::integration::MouseEventListenerInterface*) override {}
    void removeMouseListener(sdk::integration::MouseEventListenerInterface*) override {}
    void addKeyboardListener(sdk::integration::KeyEventListenerInterface*) override {}
    void removeKeyboardListener(sdk::integration::KeyEventListenerInterface*) override {}
};

} // namespace velmora::test
