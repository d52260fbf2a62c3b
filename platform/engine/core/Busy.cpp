#include "engine/core/Busy.h"

#include "engine/core/Callbacks.h"
#include "engine/core/LastError.h"

#include <exception>

namespace velmora::engine {
namespace {

int g_scopes = 0;
bool g_forced = false;
double g_progress = 0;

enum class TurnRequest { None, Noted, Told };
TurnRequest g_turn = TurnRequest::None;

void tellOfTurnRequest()
{
    if (g_turn != TurnRequest::Noted || isBusy() || !callbacks().turnRequested)
        return;
    g_turn = TurnRequest::Told;
    callbacks().turnRequested();
}

// Runs while a scope ends, perhaps because of an exception: nothing may escape.
void tellNotBusy() noexcept
{
    try {
        callbacks().notBusy();
        tellOfTurnRequest();
    } catch (const std::exception& error) {
        setLastError(error.what());
    } catch (...) {
        setLastError("A listener failed when it heard that the engine is no longer busy.");
    }
}

} // namespace

BusyScope::BusyScope() : m_outerProgress(g_progress)
{
    ++g_scopes;
    g_progress = 0;
}

BusyScope::~BusyScope()
{
    g_progress = m_outerProgress;
    --g_scopes;
    if (!isBusy())
        tellNotBusy();
}

bool isBusy()
{
    return g_scopes > 0 || g_forced;
}

void forceBusy(bool busy)
{
    const bool before = isBusy();
    g_forced = busy;
    if (before && !isBusy())
        tellNotBusy();
}

void forgetForcedBusy()
{
    g_forced = false;
}

double workProgress()
{
    return isBusy() ? g_progress : 1;
}

void setWorkProgress(double fraction)
{
    g_progress = fraction;
}

void requestTurn()
{
    if (g_turn == TurnRequest::None)
        g_turn = TurnRequest::Noted;
    tellOfTurnRequest();
}

void turnHasCome()
{
    g_turn = TurnRequest::None;
}

void putOffTurn()
{
    if (g_turn == TurnRequest::Told)
        g_turn = TurnRequest::Noted;
}

} // namespace velmora::engine
