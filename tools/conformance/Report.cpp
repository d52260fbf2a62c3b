#include "Report.h"

#include <cstdio>
#include <iomanip>
#include <locale>
#include <sstream>

namespace conformance {
namespace {

void print(const char* verdict, const std::string& where, const std::string& promise, const std::string& seen)
{
    std::printf("%-7s %-14s %-22s %s\n", verdict, where.c_str(), promise.c_str(), seen.c_str());
    std::fflush(stdout);
}

} // namespace

void Report::add(const std::string& where, const std::string& promise, bool isKept, const std::string& seen)
{
    ++(isKept ? m_kept : m_broken);
    print(isKept ? "kept" : "BROKEN", where, promise, seen);
}

void Report::skip(const std::string& where, const std::string& promise, const std::string& why)
{
    ++m_skipped;
    print("skipped", where, promise, why);
}

void Report::printSum() const
{
    std::printf("%d kept, %d broken, %d skipped\n", m_kept, m_broken, m_skipped);
}

std::string decimal(double value, int digits)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

} // namespace conformance
