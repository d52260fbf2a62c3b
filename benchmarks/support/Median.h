#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace velmora::benchmark {

using Clock = std::chrono::steady_clock;

/// How long a call takes, in milliseconds.
template <typename Call>
double millisecondsOf(Call&& call)
{
    const Clock::time_point start = Clock::now();
    call();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

} // namespace velmora::benchmark
