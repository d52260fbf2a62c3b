#include "engine/data/RecordReader.h"

#include "engine/data/TextSource.h"

#include <algorithm>

namespace velmora::engine {

namespace {

constexpr std::size_t LongestField = std::size_t{1024} * 1024;

bool endsRecord(int c)
{
    return c == '\n' || c == '\r' || c == TextSource::End;
}

} // namespace

bool RecordReader::next(Record& record)
{
    if (!skipToRecord())
        return false;
    record.fields.clear();
    if (!readLine(record))
        readFields(record);
    return true;
}

/// The usual line is in memory as a whole and has no quotes: then nothing needs to be copied.
bool RecordReader::readLine(Record& record)
{
    const auto line = m_source.lineAhead();
    if (!line || line->find('"') != std::string_view::npos)
        return false;
    m_source.takeLineAhead(*line);
    record.line = m_source.line();
    split(*line, record);
    return true;
}

void RecordReader::split(std::string_view line, Record& record) const
{
    for (;;) {
        const std::size_t length = lengthOfField(line);
        addField(trimmed(line.substr(0, length)), record);
        if (length == line.size())
            return;
        line.remove_prefix(length + 1);
        if (m_delimiter != Delimiter::Blanks)
            continue;
        line = trimmed(line);
        if (line.empty())
            return;
    }
}

std::size_t RecordReader::lengthOfField(std::string_view line) const
{
    const std::size_t length =
        m_delimiter == Delimiter::Blanks ? line.find_first_of(" \t") : line.find(static_cast<char>(m_delimiter));
    return std::min(length, line.size());
}

std::string_view RecordReader::trimmed(std::string_view field) const
{
    while (!field.empty() && isBlank(field.front()))
        field.remove_prefix(1);
    while (!field.empty() && isBlank(field.back()))
        field.remove_suffix(1);
    return field;
}

void RecordReader::addField(std::string_view field, Record& record) const
{
    if (record.fields.size() == MostFields) {
        m_source.fail(m_source.line(), "there are more than " + std::to_string(MostFields) + " columns",
                      "Read a part of the table, with fewer columns");
    }
    record.fields.push_back(field);
}

/// Character by character, and the fields point into the texts when all are there.
void RecordReader::readFields(Record& record)
{
    std::size_t count = 0;
    record.line = m_source.lineOfNext();
    do {
        addField({}, record);
        if (count == record.texts.size())
            record.texts.emplace_back();
        record.texts[count].clear();
        readField(record.texts[count]);
        ++count;
    } while (takeDelimiter());
    std::copy_n(record.texts.begin(), count, record.fields.begin());
}

/// A tab is a delimiter, not a blank, where tabs delimit.
bool RecordReader::isBlank(int c) const
{
    return c == ' ' || (c == '\t' && m_delimiter != Delimiter::Tab);
}

void RecordReader::skipBlanks()
{
    while (isBlank(m_source.peek()))
        m_source.get();
}

void RecordReader::skipLine()
{
    while (!endsRecord(m_source.peek()))
        m_source.get();
    m_source.get();
}

bool RecordReader::startsComment(int c) const
{
    return c == '#' || c == '%' || c == '!' || (c == ';' && m_delimiter != Delimiter::Semicolon);
}

bool RecordReader::skipToRecord()
{
    for (;;) {
        skipBlanks();
        const int c = m_source.peek();
        if (c == TextSource::End)
            return false;
        if (!startsComment(c) && !endsRecord(c))
            return true;
        skipLine();
    }
}

void RecordReader::readField(std::string& field)
{
    skipBlanks();
    if (m_source.peek() == '"')
        readQuoted(field);
    else
        readPlain(field);
}

void RecordReader::readPlain(std::string& field)
{
    const bool blankEnds = m_delimiter == Delimiter::Blanks;
    int c = m_source.peek();
    while (!endsRecord(c) && c != static_cast<char>(m_delimiter) && !(blankEnds && isBlank(c))) {
        append(field, m_source.get());
        c = m_source.peek();
    }
    while (!field.empty() && isBlank(field.back()))
        field.pop_back();
}

void RecordReader::readQuoted(std::string& field)
{
    m_source.get();
    const long opened = m_source.line();
    for (;;) {
        const int c = m_source.get();
        if (c == TextSource::End)
            m_source.fail(opened, "a quoted value is not closed", "Close it with a double quote; within it, write two");
        if (c == '"') {
            if (m_source.peek() != '"')
                return;
            m_source.get();
        }
        append(field, c);
    }
}

void RecordReader::append(std::string& field, int c) const
{
    if (field.size() == LongestField) {
        m_source.fail(m_source.line(), "a value has more than a million characters",
                      "Check that each quoted value is closed and that lines end");
    }
    field.push_back(static_cast<char>(c));
}

void RecordReader::failAfterQuote() const
{
    m_source.fail(m_source.line(), "a quoted value goes on after its closing quote",
                  "Within a quoted value, write a double quote twice");
}

/// Whether another field follows in this record.
bool RecordReader::takeDelimiter()
{
    const bool isApart = isBlank(m_source.peek());
    skipBlanks();
    const int c = m_source.peek();
    if (endsRecord(c)) {
        m_source.get();
        return false;
    }
    if (m_delimiter == Delimiter::Blanks ? !isApart : c != static_cast<char>(m_delimiter))
        failAfterQuote();
    if (m_delimiter != Delimiter::Blanks)
        m_source.get();
    return true;
}

} // namespace velmora::engine
