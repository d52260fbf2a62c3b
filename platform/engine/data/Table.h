#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace velmora::engine {

/// A column of a table. A missing value is NaN and shows as a gap.
struct Column {
    std::string name;
    bool isDate = false;        ///< values are days since 1970-01-01 (fractions for the time of day)
    std::vector<double> values; ///< one a row
    std::string unit = {};      ///< as a row under the header gives it, or ""
    bool countsRows = false;    ///< no column of the file: 1, 2, 3, …
};

/// What a column of a file holds, be it shown or left out.
struct ColumnSummary {
    enum Kind { Numbers, Dates, Text, Empty };

    std::string name;
    std::string unit;
    Kind kind = Empty;
    std::size_t values = 0; ///< numbers or dates
    std::size_t gaps = 0;
    double smallest = std::numeric_limits<double>::infinity(); ///< of the values, where there are any
    double largest = -std::numeric_limits<double>::infinity();
    std::string whyLeftOut; ///< "" for a column that is shown
};

/// A table as read from a delimited text file: columns of equal length, text columns left out.
struct Table {
    std::string name;                     ///< of the file, without its folder
    std::vector<Column> columns;          ///< the first one is the horizontal axis
    std::vector<ColumnSummary> summaries; ///< of all columns of the file, in its order
    std::vector<std::string> notes;       ///< what a person should know about the reading
};

} // namespace velmora::engine
