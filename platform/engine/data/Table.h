#pragma once

#include <string>
#include <vector>

namespace velmora::engine {

/// A column of a table. A missing value is NaN and shows as a gap.
struct Column {
    std::string name;
    bool isDate = false;        ///< values are days since 1970-01-01 (fractions for the time of day)
    std::vector<double> values; ///< one a row
};

/// A table as read from a delimited text file: columns of equal length, text columns left out.
struct Table {
    std::string name;               ///< of the file, without its folder
    std::vector<Column> columns;    ///< the first one is the horizontal axis
    std::vector<std::string> notes; ///< what a person should know about the reading
};

} // namespace velmora::engine
