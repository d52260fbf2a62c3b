#include "tests/soak/Verdict.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace velmora::test {

namespace {

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// What a sample does not tell of, it held none of.
double heldOf(const Sample& sample, const std::string& what)
{
    const auto found = sample.held.find(what);
    return found == sample.held.end() ? 0 : found->second;
}

double slope(const std::vector<Sample>& samples, const std::string& what)
{
    std::vector<double> slopes;
    for (std::size_t i = 0; i < samples.size(); ++i)
        for (std::size_t k = i + 1; k < samples.size(); ++k)
            slopes.push_back((heldOf(samples[k], what) - heldOf(samples[i], what)) /
                             std::max(1e-9, samples[k].minute - samples[i].minute));
    return median(slopes);
}

double medianBetween(const std::vector<Sample>& samples, const std::string& what, std::size_t from, std::size_t to)
{
    std::vector<double> values;
    for (std::size_t i = from; i < to; ++i)
        values.push_back(heldOf(samples[i], what));
    return median(values);
}

bool isMemory(const std::string& what)
{
    return what.size() > 3 && what.compare(what.size() - 3, 3, "_kb") == 0;
}

std::string rounded(double value)
{
    return std::to_string(std::lround(value));
}

/// Empty when it is flat.
std::string growthOf(const std::vector<Sample>& samples, const std::string& what, const Allowance& allowed)
{
    if (isMemory(what)) {
        const double grows = slope(samples, what);
        if (grows <= allowed.kilobytesPerMinute)
            return "";
        return what + " grows by " + rounded(grows) + " a minute; " + rounded(allowed.kilobytesPerMinute) +
               " are allowed";
    }
    const std::size_t third = samples.size() / 3;
    const double first = medianBetween(samples, what, 0, third);
    const double last = medianBetween(samples, what, samples.size() - third, samples.size());
    return last > first + allowed.pieces ? what + " grew from " + rounded(first) + " to " + rounded(last) : "";
}

} // namespace

std::vector<std::string> findGrowth(const std::vector<Sample>& samples, double fromMinute, const Allowance& allowed)
{
    std::vector<Sample> warm;
    std::copy_if(samples.begin(), samples.end(), std::back_inserter(warm),
                 [fromMinute](const Sample& sample) { return sample.minute >= fromMinute; });
    if (warm.size() < FewestSamples)
        return {"There are too few samples to judge by; let it run longer."};
    std::vector<std::string> wrong;
    std::set<std::string> kinds;
    for (const Sample& sample : warm)
        for (const auto& held : sample.held)
            kinds.insert(held.first);
    for (const std::string& kind : kinds) {
        const std::string growth = growthOf(warm, kind, allowed);
        if (!growth.empty())
            wrong.push_back(growth);
    }
    return wrong;
}

} // namespace velmora::test
