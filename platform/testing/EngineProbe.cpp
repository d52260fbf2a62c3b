#include "testing/EngineProbe.h"

#include "engine/core/Busy.h"
#include "engine/core/Trace.h"
#include "exception/ExceptionBase.h"

#include <map>
#include <set>

namespace velmora::testing {
namespace {

struct Steering {
    std::map<std::string, int> refusedWrites;
    std::set<std::string> failingReads;
    std::map<std::string, int> throwing; ///< how many times more
};

struct Probe {
    bool logging = false;
    std::vector<std::string> log;
    Steering steering;
    std::vector<void (*)()> resetHooks;
};

Probe& probe()
{
    static Probe state;
    return state;
}

/// What the engine asks the probe.
class ProbingTrace final : public engine::Trace {
public:
    ProbingTrace() { install(this); }

    bool wantsCalls() const override { return EngineProbe::isLogging(); }
    void called(const std::string& entry) override { EngineProbe::note(entry); }
    void passed(const char* point) override { EngineProbe::passPoint(point); }
    int styleWriteCode(const std::string& path) const override { return EngineProbe::styleWriteCode(path); }
    bool styleReadFails(const std::string& path) const override { return EngineProbe::styleReadFails(path); }
};

const ProbingTrace g_trace;

} // namespace

void EngineProbe::reset()
{
    probe().logging = false;
    probe().log.clear();
    probe().steering = {};
    engine::forgetForcedBusy();
    for (void (*hook)() : probe().resetHooks)
        hook();
}

void EngineProbe::startLog()
{
    probe().log.clear();
    probe().logging = true;
}

std::vector<std::string> EngineProbe::log()
{
    return probe().log;
}

void EngineProbe::clearLog()
{
    probe().log.clear();
}

bool EngineProbe::isLogging()
{
    return probe().logging;
}

void EngineProbe::note(const std::string& entry)
{
    if (probe().logging)
        probe().log.push_back(entry);
}

void EngineProbe::setBusy(bool busy)
{
    engine::forceBusy(busy);
}

void EngineProbe::refuseStyleWrites(const std::string& path, int code)
{
    if (code != 0)
        probe().steering.refusedWrites[path] = code;
    else
        probe().steering.refusedWrites.erase(path);
}

void EngineProbe::failStyleReads(const std::string& path, bool fail)
{
    if (fail)
        probe().steering.failingReads.insert(path);
    else
        probe().steering.failingReads.erase(path);
}

int EngineProbe::styleWriteCode(const std::string& path)
{
    const auto found = probe().steering.refusedWrites.find(path);
    return found == probe().steering.refusedWrites.end() ? 0 : found->second;
}

bool EngineProbe::styleReadFails(const std::string& path)
{
    return probe().steering.failingReads.count(path) > 0;
}

void EngineProbe::throwAt(const std::string& point, int times)
{
    if (times > 0)
        probe().steering.throwing[point] = times;
    else
        probe().steering.throwing.erase(point);
}

void EngineProbe::passPoint(const char* point)
{
    std::map<std::string, int>& throwing = probe().steering.throwing;
    if (throwing.empty())
        return;
    const auto found = throwing.find(point);
    if (found == throwing.end())
        return;
    if (--found->second == 0)
        throwing.erase(found);
    throw ExceptionBase(std::string("Provoked at ") + point + ".", false);
}

void EngineProbe::addResetHook(void (*hook)())
{
    probe().resetHooks.push_back(hook);
}

} // namespace velmora::testing
