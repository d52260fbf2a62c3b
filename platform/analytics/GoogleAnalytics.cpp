#include "analytics/GoogleAnalytics.h"

#include <algorithm>
#include <array>

namespace velmora::analytics {
namespace {

/// Object names that a reporting back end gives to its network objects: the manager, and the reply
/// to each report.
constexpr std::array<const char*, 2> NetworkSourceNames{{
    "velmora_usage_report",
    "velmora_usage_report_reply",
}};

} // namespace

bool GoogleAnalytics::isNetworkSource(const std::string& objectName)
{
    return std::any_of(NetworkSourceNames.begin(), NetworkSourceNames.end(),
                       [&objectName](const char* name) { return objectName == name; });
}

} // namespace velmora::analytics
