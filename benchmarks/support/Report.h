#pragma once

#include <cstdio>
#include <string>

namespace velmora::benchmark {

/// One row of the table that benchmarks/run prints.
struct Figure {
    std::string what;
    double value = 0;
    const char* unit = "×";
    double limit = 0;      ///< what the figure shall not exceed; 0: none is set
    std::string from = ""; ///< the absolute figures it comes from
};

/// A number with few digits: "24.3 ns".
inline std::string rounded(double value, const char* unit)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f %s", value < 10.0 ? 2 : value < 1000.0 ? 1 : 0, value, unit);
    return text;
}

/// Prints the row in Markdown; whether the limit is kept.
inline bool report(const Figure& figure)
{
    const bool kept = figure.limit <= 0.0 || figure.value <= figure.limit;
    std::printf("| %s | %s | %s%s | %s |\n", figure.what.c_str(), rounded(figure.value, figure.unit).c_str(),
                figure.limit > 0.0 ? rounded(figure.limit, figure.unit).c_str() : "", kept ? "" : " EXCEEDED",
                figure.from.c_str());
    std::fflush(stdout);
    return kept;
}

} // namespace velmora::benchmark
