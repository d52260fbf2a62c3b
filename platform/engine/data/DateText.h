#pragma once

#include <string>
#include <string_view>

namespace velmora::engine {

/// How a date was written.
enum class DateOrder {
    NoDate,
    Certain,  ///< the order of its parts is beyond doubt
    Either,   ///< both the day and the month may be first
    DayFirst, ///< it has no month of that number the other way round
    MonthFirst
};

/// Reads YYYY-MM-DD, YYYY/MM/DD, YYYY-MM, DD.MM.YYYY, and DD/MM/YYYY or MM/DD/YYYY (or with '-'), and a time of day
/// that may follow after a 'T' or a blank: H:MM or HH:MM[:SS[.f]], then perhaps Z, UTC or an offset such as +02:00.
/// Sets `days` to the days since 1970-01-01 in UTC, of a date that may be both with the day first.
DateOrder parseDate(std::string_view text, double& days);

/// The other day for a date of which both orders are possible.
double withDayAndMonthSwapped(double days);

/// Makes the number 20240105 the days since 1970-01-01; false when it is no such date.
bool daysOfCompactDate(double number, double& days);

/// "2024-01-05", or with the time of day "2024-01-05 10:00:00.123".
std::string dateText(double days);

} // namespace velmora::engine
