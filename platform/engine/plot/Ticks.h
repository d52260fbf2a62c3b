#pragma once

#include <string>
#include <vector>

namespace velmora::engine {

/// What an axis shows.
struct AxisRange {
    double from = 0;
    double to = 1;
    double span() const { return to - from; } ///< infinite for a range of nearly all numbers
    /// Where a value lies: 0 at `from`, 1 at `to`. By halves, whose difference is finite for every range.
    double fractionOf(double value) const { return (value / 2 - from / 2) / (to / 2 - from / 2); }
    double valueAt(double fraction) const { return from * (1 - fraction) + to * fraction; }
};

struct Tick {
    double value = 0;
    std::string label;
};

/// The range for finite data from `smallest` to `largest` with some room at both ends. Data of one value,
/// or of none (not finite), get a range too.
AxisRange rangeAround(double smallest, double largest, double roomFraction);

/// The step of 1, 2 or 5 times a power of ten that divides the range into at most `most` parts.
double niceStep(const AxisRange& range, int most);

/// Ticks at whole multiples of a nice step inside the range, `most` + 1 at the most; the step is no less than
/// `leastStep`.
std::vector<Tick> numberTicks(const AxisRange& range, int most, double leastStep = 0);

/// What a logarithmic axis can show, as decadic logarithms: numbers with all their digits.
namespace logarithm {

constexpr double Least = -307;
constexpr double Most = 308.25;

} // namespace logarithm

/// Ticks inside a range of decadic logarithms, `most` + 1 at the most but at least two: at decades, with 2 and 5
/// between them where there is room; where less than two of these lie in the range, at multiples of a nice step.
std::vector<Tick> logarithmicTicks(const AxisRange& range, int most);

/// A number as a person writes it, with the digits that a step of `step` needs: "0.25", "-1500",
/// "3×10⁻⁹".
std::string formatNumber(double value, double step);

} // namespace velmora::engine
