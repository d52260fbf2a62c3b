#pragma once

#include "Log.h"

#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/OnIdleListenerInterface.h"

#include <functional>
#include <utility>

namespace velmora::tests {

class FakeMouseListener : public sdk::integration::MouseEventListenerInterface {
public:
    FakeMouseListener(std::string name, Log& log) : m_name(std::move(name)), m_log(log) {}

    void mouseMoved(sdk::integration::MouseEventInterface&, sdk::integration::MouseEventObservableInterface&) override
    {
        m_log.push_back(m_name + " moved");
    }
    void buttonPressed(sdk::integration::MouseEventInterface&,
                       sdk::integration::MouseEventObservableInterface&) override
    {
        m_log.push_back(m_name + " pressed");
    }
    void buttonReleased(sdk::integration::MouseEventInterface&,
                        sdk::integration::MouseEventObservableInterface&) override
    {
        m_log.push_back(m_name + " released");
    }
    void buttonDoublePressed(sdk::integration::MouseEventInterface&,
                             sdk::integration::MouseEventObservableInterface&) override
    {
        m_log.push_back(m_name + " double pressed");
    }

private:
    std::string m_name;
    Log& m_log;
};

class FakeKeyListener : public sdk::integration::KeyEventListenerInterface {
public:
    FakeKeyListener(std::string name, Log& log) : m_name(std::move(name)), m_log(log) {}

    void keyPressed(sdk::integration::KeyEventInterface&, sdk::integration::KeyEventObservableInterface&) override
    {
        m_log.push_back(m_name + " pressed");
    }
    void keyReleased(sdk::integration::KeyEventInterface&, sdk::integration::KeyEventObservableInterface&) override
    {
        m_log.push_back(m_name + " released");
    }

private:
    std::string m_name;
    Log& m_log;
};

struct FakeIdleListener : public sdk::integration::OnIdleListenerInterface {
    void onIdle(sdk::integration::OnIdleObservableInterface& source) override
    {
        ++count;
        if (action)
            action(source);
    }
    int count = 0;
    std::function<void(sdk::integration::OnIdleObservableInterface&)> action;
};

} // namespace velmora::tests
