#pragma once

#include "integrationmanager/GLDrawAreaStateObservable.h"
#include "interfaces/GLContextInterface.h"
#include "tests/support/SilentArea.h"

namespace velmora::tests {

/// A drawing area without a window. The engine leaves it alone until the test makes it valid, and
/// then cannot draw in it, for its context cannot be made current.
class FakeArea : public test::SilentArea {
public:
    FakeArea() : states(*this) {}

    bool isVisible() const override { return true; }
    void getSize(int* width, int* height) const override
    {
        *width = 320;
        *height = 240;
    }
    sdk::integration::GLContextInterface& getGLContext() override { return m_context; }
    bool isValidWidget() const override { return valid; }
    void addStateListener(sdk::integration::GLDrawAreaListenerInterface* listener) override
    {
        ++listenersAdded;
        states.addListener(listener);
    }
    void removeStateListener(sdk::integration::GLDrawAreaListenerInterface* listener) override
    {
        ++listenersRemoved;
        states.removeListener(listener);
    }

    sdk::integration::intern::GLDrawAreaStateObservable states;
    bool valid = false;
    int listenersAdded = 0;
    int listenersRemoved = 0;

private:
    struct Context : public virtual sdk::integration::GLContextInterface {
        void swapBuffers() override {}
        bool setCurrentGL() override { return false; }
        bool clearCurrentGL() override { return true; }
    };
    Context m_context;
};

} // namespace velmora::tests
