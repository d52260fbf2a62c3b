#pragma once

namespace velmora::sdk::integration::intern {

/// How the probe for tests reaches every live event monitor.
struct MonitorProbe {
    /// Forces the stop request, busy or not, until it is called with false.
    static void askToStop(bool stop);
    static void discardNextEvent(bool discard);
    /// Whether any monitor is about to discard an event.
    static bool isDiscardingNextEvent();
};

} // namespace velmora::sdk::integration::intern
