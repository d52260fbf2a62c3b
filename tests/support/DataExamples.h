#pragma once

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace velmora::test {

/// A row of the tables of docs/data-files.md.
struct DataExample {
    std::string what;
    std::string text; ///< the file
    std::string read; ///< as what, or "refused"
    std::string note; ///< a part of one or of the message; "" where there is none
};

/// Takes the quotes of Markdown off and makes \n, \t, \r, \p and \xB0 what they stand for.
inline std::string exampleText(std::string cell)
{
    const std::size_t first = cell.find_first_not_of("` ");
    cell = first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of("` ") - first + 1);
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const char next = cell[i] == '\\' && i + 1 < cell.size() ? cell[i + 1] : '\0';
        if (next == 'x') {
            text += static_cast<char>(std::stoi(cell.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else if (next != '\0') {
            text += next == 'n' ? '\n' : next == 't' ? '\t' : next == 'r' ? '\r' : next == 'p' ? '|' : next;
            ++i;
        } else {
            text += cell[i];
        }
    }
    return text;
}

inline std::vector<DataExample> dataExamples(const std::string& fileName)
{
    std::vector<DataExample> examples;
    std::ifstream file(fileName);
    for (std::string line; std::getline(file, line);) {
        std::vector<std::string> cells;
        for (std::size_t from = 1, to = 0; !line.empty() && line[0] == '|' && from < line.size(); from = to + 1) {
            to = std::min(line.find('|', from), line.size());
            cells.push_back(line.substr(from, to - from));
        }
        if (cells.size() != 4 || cells[1].find('`') == std::string::npos)
            continue;
        const std::string note = exampleText(cells[3]);
        examples.push_back(
            {exampleText(cells[0]), exampleText(cells[1]), exampleText(cells[2]), note == "–" ? "" : note});
    }
    return examples;
}

} // namespace velmora::test
