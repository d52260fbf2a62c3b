#include "engine/core/Busy.h"

#include "engine/VelUtil.h"
#include "engine/core/Callbacks.h"
#include "engine/core/LastError.h"

#include <exception>

namespace velmora::engine {
namespace {

int g_scopes = 0;
bool g_forced = false;
double g_progress = 0;

enum class Wish { None, Noted, Told };
Wish g_turn = Wish::None;

void tellTurnWish()
{
    if (g_turn != Wish::Noted || isBusy() || !callbacks().turnWanted)
        return;
    g_turn = Wish::Told;
    callbacks().turnWanted();
}

// Runs while a scope ends, perhaps because of an exception: nothing may escape.
void tellNotBusy() noexcept
{
    try {
        callbacks().notBusy();
        tellTurnWish();
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

void wantTurn()
{
    if (g_turn == Wish::None)
        g_turn = Wish::Noted;
    tellTurnWish();
}

void turnHasCome()
{
    g_turn = Wish::None;
}

void putOffTurn()
{
    if (g_turn == Wish::Told)
        g_turn = Wish::Noted;
}

} // namespace velmora::engine

int VelUtilIsBusy()
{
    return velmora::engine::isBusy() ? 1 : 0;
}

double VelUtilWorkProgress()
{
    return velmora::engine::workProgress();
}
