#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::engine {

class TextSource;

/// What separates the fields of a line. Blanks means any run of spaces and tabs.
enum class Delimiter : char { Tab = '\t', Semicolon = ';', Comma = ',', Blanks = ' ' };

/// The fields of one row of a table, blanks around them left out; valid until the next one is read.
struct Record {
    long line = 0; ///< where it starts
    std::vector<std::string_view> fields;
    std::vector<std::string> texts; ///< memory of fields that are not in the source's as they are
};

/// Takes a delimited text apart into records. Fields in double quotes may hold delimiters, line
/// ends and doubled quotes. Leaves out empty lines and comments, which are lines that start with
/// '#', '%', '!' or, where it does not delimit, ';'.
class RecordReader {
public:
    static constexpr std::size_t MostFields = 10000;

    RecordReader(TextSource& source, Delimiter delimiter) : m_source(source), m_delimiter(delimiter) {}

    /// False when there is no further record. Throws ReadError.
    bool next(Record& record);

private:
    bool skipToRecord();
    bool startsComment(int c) const;
    bool readLine(Record& record);
    void readFields(Record& record);
    void split(std::string_view line, Record& record) const;
    std::string_view trimmed(std::string_view field) const;
    std::size_t lengthOfField(std::string_view line) const;
    void addField(std::string_view field, Record& record) const;
    void skipBlanks();
    void skipLine();
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
