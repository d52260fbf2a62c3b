#include "engine/data/DateText.h"

#include "engine/data/NumberText.h"

#include <cstddef>
#include <date/date.h>

namespace velmora::engine {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes `digits` digits off the text; false when there are not as many.
bool takeNumber(std::string_view& text, std::size_t digits, int& number)
{
    if (text.size() < digits) {
        return false;
    }
    number = 0;
    for (const char c : text.substr(0, digits)) {
        if (!isDigit(c)) {
            return false;
        }
        number = number * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return true;
}

bool take(std::string_view& text, char wanted)
{
    if (text.empty() || text.front() != wanted) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

bool takeSeconds(std::string_view& text, double& seconds)
{
    int whole = 0;
    if (!takeNumber(text, 2, whole) || whole > 59) {
        return false;
    }
    seconds = whole;
    if (text.empty() || text.front() != '.') {
        return true;
    }
    std::size_t length = 1;
    while (length < text.size() && isDigit(text[length])) {
        ++length;
    }
    double fraction = 0;
    if (length == 1 || parseNumber(text.substr(0, length), fraction) != NumberText::Number) {
        return false;
    }
    seconds += fraction;
    text.remove_prefix(length);
    return true;
}

bool parseTime(std::string_view text, double& fractionOfDay)
{
    int hour = 0;
    int minute = 0;
    double seconds = 0;
    if (!takeNumber(text, 2, hour) || hour > 23 || !take(text, ':') || !takeNumber(text, 2, minute) || minute > 59) {
        return false;
    }
    if (take(text, ':') && !takeSeconds(text, seconds)) {
        return false;
    }
    take(text, 'Z');
    fractionOfDay = (hour * 3600 + minute * 60 + seconds) / 86400.0;
    return text.empty();
}

} // namespace

bool parseDate(std::string_view text, double& days)
{
    int year = 0;
    int month = 0;
    int day = 0;
    if (!takeNumber(text, 4, year) || !take(text, '-') || !takeNumber(text, 2, month) || !take(text, '-') ||
        !takeNumber(text, 2, day)) {
        return false;
    }
    const date::year_month_day date = date::year(year) / month / day;
    if (!date.ok()) {
        return false;
    }
    double fractionOfDay = 0;
    if (!text.empty() && ((!take(text, 'T') && !take(text, ' ')) || !parseTime(text, fractionOfDay))) {
        return false;
    }
    days = static_cast<double>(date::sys_days(date).time_since_epoch().count()) + fractionOfDay;
    return true;
}

} // namespace velmora::engine
