#pragma once

namespace velmora::engine {

/// The engine works as long as one of these lives. Scopes nest; when the outermost one ends, the
/// engine is no longer busy, and then the not-busy callback hears of it, once. An exception of that
/// callback becomes the last error message.
class BusyScope {
public:
    BusyScope();
    ~BusyScope();
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    double m_outerProgress;
};

bool isBusy();
/// Busy until told otherwise, whether or not there is work: for tests. Ending it calls the not-busy
/// callback, unless there is work.
void forceBusy(bool busy);
/// Ends it without a callback.
void forgetForcedBusy();

/// How far the current work is, 0 to 1; 1 when the engine is not busy.
double workProgress();
void setWorkProgress(double fraction);

/// Work has begun to wait for a turn of the engine: calls the callback for requested turns, as
/// soon as the engine is not busy. Asking again before that turn has no further effect.
void requestTurn();
/// The turn has come, so that the next request calls again.
void turnHasCome();
/// The request could not be met, for example because the engine was busy: it is made once more, when
/// the engine stops being busy or with the next request.
void putOffTurn();

} // namespace velmora::engine
