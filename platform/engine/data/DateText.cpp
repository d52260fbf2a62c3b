#include "engine/data/DateText.h"

#include "engine/data/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <date/date.h>

namespace velmora::engine {

namespace {

constexpr std::int64_t MicrosecondsADay = 86400000000;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes `least` to `most` digits off the text; false when there are not as many.
bool takeNumber(std::string_view& text, std::size_t least, std::size_t most, int& number)
{
    std::size_t digits = 0;
    number = 0;
    for (; digits < most && digits < text.size() && isDigit(text[digits]); ++digits)
        number = number * 10 + (text[digits] - '0');
    text.remove_prefix(digits);
    return digits >= least;
}

bool take(std::string_view& text, std::string_view wanted)
{
    if (text.substr(0, wanted.size()) != wanted)
        return false;
    text.remove_prefix(wanted.size());
    return true;
}

bool takeSeconds(std::string_view& text, double& seconds)
{
    int whole = 0;
    if (!takeNumber(text, 2, 2, whole) || whole > 59)
        return false;
    seconds = whole;
    if (!take(text, ".") && !take(text, ","))
        return true;
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    double fraction = 0;
    if (parseNumber("0." + std::string(digits), fraction) != NumberText::Number || digits.empty())
        return false;
    seconds += fraction;
    text.remove_prefix(digits.size());
    return true;
}

/// Z, UTC, GMT, +02:00, -0330, +02, or nothing.
bool takeOffset(std::string_view& text, int& minutes)
{
    minutes = 0;
    if (text.empty())
        return true;
    take(text, " ");
    if (take(text, "Z") || take(text, "UTC") || take(text, "GMT"))
        return true;
    const int sign = text.substr(0, 1) == "-" ? -1 : 1;
    int hour = 0;
    int minute = 0;
    if ((!take(text, "+") && !take(text, "-")) || !takeNumber(text, 2, 2, hour) || hour > 18)
        return false;
    const bool hasMinutes = take(text, ":") || !text.empty();
    if (hasMinutes && (!takeNumber(text, 2, 2, minute) || minute > 59))
        return false;
    minutes = sign * (hour * 60 + minute);
    return true;
}

bool parseTime(std::string_view text, double& fractionOfDay)
{
    int hour = 0;
    int minute = 0;
    int offset = 0;
    double seconds = 0;
    if (!takeNumber(text, 1, 2, hour) || hour > 23 || !take(text, ":") || !takeNumber(text, 2, 2, minute) ||
        minute > 59)
        return false;
    if ((take(text, ":") && !takeSeconds(text, seconds)) || !takeOffset(text, offset))
        return false;
    fractionOfDay = (hour * 3600 + (minute - offset) * 60 + seconds) / 86400.0;
    return text.empty();
}

double daysOf(const date::year_month_day& date)
{
    return date::sys_days(date).time_since_epoch().count();
}

date::year_month_day dateOf(double days)
{
    return date::sys_days(date::days(static_cast<int>(std::floor(days))));
}

/// YYYY-MM-DD, YYYY/MM/DD, YYYY-MM
DateOrder takeYearFirst(std::string_view& text, double& days)
{
    int year = 0;
    int month = 0;
    int day = 1;
    if (!takeNumber(text, 4, 4, year))
        return DateOrder::NoDate;
    const std::string_view separator = text.substr(0, 1);
    if ((separator != "-" && separator != "/") || !take(text, separator) || !takeNumber(text, 2, 2, month))
        return DateOrder::NoDate;
    const bool hasDay = take(text, separator);
    if (hasDay ? !takeNumber(text, 2, 2, day) : separator == "/" || !text.empty())
        return DateOrder::NoDate;
    const date::year_month_day date = date::year(year) / month / day;
    days = date.ok() ? daysOf(date) : 0;
    return date.ok() ? DateOrder::Certain : DateOrder::NoDate;
}

/// DD.MM.YYYY, DD/MM/YYYY, MM/DD/YYYY and the latter with '-'
DateOrder takeYearLast(std::string_view& text, double& days)
{
    int first = 0;
    int second = 0;
    int year = 0;
    takeNumber(text, 1, 2, first);
    const std::string_view separator = text.substr(0, 1);
    if ((separator != "." && separator != "/" && separator != "-") || !take(text, separator) ||
        !takeNumber(text, 1, 2, second) || !take(text, separator) || !takeNumber(text, 4, 4, year))
        return DateOrder::NoDate;
    const date::year_month_day dayFirst = date::year(year) / second / first;
    const date::year_month_day monthFirst = date::year(year) / first / second;
    days = dayFirst.ok() ? daysOf(dayFirst) : monthFirst.ok() ? daysOf(monthFirst) : 0;
    if (separator == "." || !monthFirst.ok())
        return !dayFirst.ok() ? DateOrder::NoDate : separator == "." ? DateOrder::Certain : DateOrder::DayFirst;
    return dayFirst.ok() ? DateOrder::Either : DateOrder::MonthFirst;
}

std::string twoDigits(std::int64_t number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

DateOrder parseDate(std::string_view text, double& days)
{
    if (text.empty() || !isDigit(text.front()))
        return DateOrder::NoDate;
    const bool isYearFirst = text.size() > 4 && isDigit(text[2]) && isDigit(text[3]);
    const DateOrder order = isYearFirst ? takeYearFirst(text, days) : takeYearLast(text, days);
    if (order == DateOrder::NoDate || text.empty())
        return order;
    double fractionOfDay = 0;
    if ((!take(text, "T") && !take(text, " ")) || !parseTime(text, fractionOfDay))
        return DateOrder::NoDate;
    days += fractionOfDay;
    return order;
}

double withDayAndMonthSwapped(double days)
{
    const date::year_month_day date = dateOf(days);
    const date::year_month_day swapped = date.year() / static_cast<int>(unsigned(date.day())) / unsigned(date.month());
    return daysOf(swapped) + (days - std::floor(days));
}

bool daysOfCompactDate(double number, double& days)
{
    if (!(number >= 10000101 && number <= 29991231) || number != std::floor(number))
        return false;
    const int digits = static_cast<int>(number);
    const date::year_month_day date = date::year(digits / 10000) / (digits / 100 % 100) / (digits % 100);
    days = date.ok() ? daysOf(date) : 0;
    return date.ok();
}

std::string dateText(double days)
{
    const auto all = static_cast<std::int64_t>(std::llround(days * static_cast<double>(MicrosecondsADay)));
    const std::int64_t day = all / MicrosecondsADay - (all % MicrosecondsADay < 0 ? 1 : 0);
    const std::int64_t time = all - day * MicrosecondsADay;
    std::string text = date::format("%F", date::sys_days(date::days(static_cast<int>(day))));
    if (time == 0)
        return text;
    const std::int64_t seconds = time / 1000000;
    text += " " + twoDigits(seconds / 3600) + ":" + twoDigits(seconds / 60 % 60) + ":" + twoDigits(seconds % 60);
    std::string fraction = std::to_string(time % 1000000);
    fraction = "." + std::string(6 - fraction.size(), '0') + fraction;
    fraction.erase(fraction.find_last_not_of("0") + 1);
    return fraction == "." ? text : text + fraction;
}

} // namespace velmora::engine
