#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace velmora::test {

/// What the program held at one rest.
struct Sample {
    double minute = 0;
    std::map<std::string, double> held;
};

/// What may be gained without being called growth.
struct Allowance {
    double kilobytesPerMinute = 0;
    double pieces = 0;
};

/// Fewer samples are not judged by.
constexpr std::size_t FewestSamples = 6;

/// What is wrong with the samples from a minute on; empty when all is flat:
/// - memory ("…_kb") grows by no more than its allowance a minute, as the median of all slopes between
///   two samples says, which single odd samples do not move;
/// - of all else, which comes in pieces, the last third's median is above the first third's by no more
///   than the allowance.
std::vector<std::string> findGrowth(const std::vector<Sample>& samples, double fromMinute, const Allowance& allowed);

} // namespace velmora::test
