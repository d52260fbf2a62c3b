#pragma once

#include "engine/VelExport.h"

#include <string>
#include <vector>

namespace velmora {
namespace testing {

/// Lets a test see and steer the reference platform from outside. Never part of an installation.
/// GUI thread only; everything is process-wide. `reset()` undoes all steering and empties the log.
class VELMORA_PLATFORM_EXPORT EngineProbe {
public:
    static void reset();

    // ---- seeing: the calls that reached the platform, in order

    /// Begins to log; off until then, so that nothing is paid for it outside a test.
    static void startLog();
    /// One entry a call, for example "AppLock 0", "VelUtilFrameFitAllToPaper",
    /// "styleSet Paper/PaperSize IValue=5 DValue=5", "addService MessageBoxServiceInterface".
    static std::vector<std::string> log();
    static void clearLog();
    static bool isLogging();
    static void note(const std::string& entry);

    // ---- steering

    /// Makes VelUtilIsBusy() answer as told; going from busy to not busy calls the engine's
    /// not-busy callback, as the end of real work does.
    static void setBusy(bool busy);
    /// Sets or clears the stop request of every event monitor there is.
    static void askToStop(bool stop);
    /// Makes every event monitor discard its next event.
    static void discardNextEvent();
    static bool isDiscardingNextEvent();
    /// Answers writes of a style path ("Paper/PaperSize") with this code; 0 allows them again.
    static void refuseStyleWrites(const std::string& path, int code);
    /// Makes reads of a style path fail.
    static void failStyleReads(const std::string& path, bool fail = true);
    static int styleWriteCode(const std::string& path);
    static bool styleReadFails(const std::string& path);
    /// Throws velmora::ExceptionBase("Provoked at <point>.", false) the next `times` times the
    /// platform passes the point: the name of a platform class for its constructor, "drawing" for
    /// the middle of drawing a page, "ArgList" for appending to an argument list.
    static void throwAt(const std::string& point, int times = 1);
    /// Called by the platform at such a point.
    static void passPoint(const char* point);
    /// Sets the state word of every page tracker there is; -1 gives them their own back.
    static void setPageTrackerState(int state);

    /// For the libraries above the engine: `hook` runs on every reset().
    static void addResetHook(void (*hook)());
};

} // namespace testing
} // namespace velmora
