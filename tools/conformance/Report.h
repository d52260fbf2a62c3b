#pragma once

#include <string>

namespace conformance {

/// Prints which promises hold, a line each.
class Report {
public:
    /// `where` it was looked at ("drawing area"), which promise, whether it is kept, and what was seen.
    void add(const std::string& where, const std::string& promise, bool isKept, const std::string& seen);
    /// Something that could not be looked at, and why. It breaks no promise.
    void skip(const std::string& where, const std::string& promise, const std::string& why);
    bool isKept() const { return m_broken == 0; }
    /// Whether any promise was looked at.
    bool hasAny() const { return m_kept + m_broken > 0; }
    void printSum() const;

private:
    int m_kept = 0;
    int m_broken = 0;
    int m_skipped = 0;
};

/// With that many digits behind the point.
std::string decimal(double value, int digits);

} // namespace conformance
