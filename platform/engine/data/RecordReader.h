#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmora::engine {

class TextSource;

/// What separates the fields of a line. Blanks means any run of spaces and tabs.
enum class Delimiter : char { Tab = '\t', Semicolon = ';', Comma = ',', Blanks = ' ' };

/// The fields of one row of a table, blanks around them left out.
struct Record {
    long line = 0; ///< where it starts
    std::size_t count = 0;
    std::vector<std::string> fields; ///< the first `count`; the rest is kept for its memory
};

/// Takes a delimited text apart into records. Fields in double quotes may hold delimiters, line
/// ends and doubled quotes. Leaves out empty lines and lines that start with '#'.
class RecordReader {
public:
    static constexpr std::size_t mostFields = 10000;

    RecordReader(TextSource& source, Delimiter delimiter) : m_source(source), m_delimiter(delimiter) {}

    /// False when there is no further record. Throws ReadError.
    bool next(Record& record);

private:
    bool skipToRecord();
    void skipBlanks();
    void skipLine();
    std::string& startField(Record& record);
    void readField(std::string& field);
    void readPlain(std::string& field);
    void readQuoted(std::string& field);
    void append(std::string& field, int c) const;
    [[noreturn]] void failAfterQuote() const;
    bool takeDelimiter();
    bool isBlank(int c) const;

    TextSource& m_source;
    Delimiter m_delimiter;
};

} // namespace velmora::engine
