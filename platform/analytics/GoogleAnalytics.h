#pragma once

#include <string>

namespace velmora::analytics {

/// Usage reporting of the platform. The reference platform reports nothing; it only knows by which
/// object names a reporting back end would be found.
class __attribute__((visibility("default"))) GoogleAnalytics {
public:
    /// Whether an object of this name takes part in network traffic of the reporting.
    static bool isNetworkSource(const std::string& objectName);
};

} // namespace velmora::analytics
