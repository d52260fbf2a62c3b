#pragma once

#include "FakeMonitor.h"

#include "integrationmanager/ManagerAbstract.h"

namespace velmora::tests {

/// A manager without a toolkit.
class FakeManager : public virtual sdk::integration::ManagerAbstract {
public:
    FakeManager() : monitor(*this) {}

    sdk::integration::ApplicationEventMonitorInterface& getApplicationEventMonitor() override { return monitor; }

    /// `init` with this command line.
    sdk::integration::ManagerStartReturnCode_e initWith(std::vector<std::string> arguments = {"host"})
    {
        std::vector<char*> pointers;
        for (std::string& argument : arguments)
            pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        return init(static_cast<int>(arguments.size()), pointers.data(), "", "Host");
    }

    FakeMonitor monitor;
    Log* log = nullptr;

protected:
    void subManagersInstantiate() override
    {
        note("instantiate");
        ManagerAbstract::subManagersInstantiate();
    }
    void subManagersRegisterCallbacks() override
    {
        note("register");
        ManagerAbstract::subManagersRegisterCallbacks();
    }
    void subManagersDestroy() override
    {
        note("destroy");
        ManagerAbstract::subManagersDestroy();
    }

private:
    void note(const char* entry)
    {
        if (log != nullptr)
            log->push_back(entry);
    }
};

} // namespace velmora::tests
