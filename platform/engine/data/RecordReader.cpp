#include "engine/data/RecordReader.h"

#include "engine/data/TextSource.h"

namespace velmora::engine {

namespace {

constexpr std::size_t longestField = std::size_t{1024} * 1024;

bool endsRecord(int c)
{
    return c == '\n' || c == '\r' || c == TextSource::end;
}

} // namespace

bool RecordReader::next(Record& record)
{
    if (!skipToRecord()) {
        return false;
    }
    record.count = 0;
    do {
        readField(startField(record));
        if (record.count == 1) {
            record.line = m_source.line();
        }
    } while (takeDelimiter());
    return true;
}

/// A tab is a delimiter, not a blank, where tabs delimit.
bool RecordReader::isBlank(int c) const
{
    return c == ' ' || (c == '\t' && m_delimiter != Delimiter::Tab);
}

void RecordReader::skipBlanks()
{
    while (isBlank(m_source.peek())) {
        m_source.get();
    }
}

void RecordReader::skipLine()
{
    while (!endsRecord(m_source.peek())) {
        m_source.get();
    }
    m_source.get();
}

bool RecordReader::skipToRecord()
{
    for (;;) {
        skipBlanks();
        const int c = m_source.peek();
        if (c == TextSource::end) {
            return false;
        }
        if (c != '#' && !endsRecord(c)) {
            return true;
        }
        skipLine();
    }
}

std::string& RecordReader::startField(Record& record)
{
    if (record.count == mostFields) {
        m_source.fail(m_source.line(), "there are more than " + std::to_string(mostFields) + " columns",
                      "Read a part of the table, with fewer columns");
    }
    if (record.count == record.fields.size()) {
        record.fields.emplace_back();
    }
    std::string& field = record.fields[record.count++];
    field.clear();
    return field;
}

void RecordReader::readField(std::string& field)
{
    skipBlanks();
    if (m_source.peek() == '"') {
        readQuoted(field);
    } else {
        readPlain(field);
    }
}

void RecordReader::readPlain(std::string& field)
{
    const bool blankEnds = m_delimiter == Delimiter::Blanks;
    int c = m_source.peek();
    while (!endsRecord(c) && c != static_cast<char>(m_delimiter) && !(blankEnds && isBlank(c))) {
        append(field, m_source.get());
        c = m_source.peek();
    }
    while (!field.empty() && isBlank(field.back())) {
        field.pop_back();
    }
}

void RecordReader::readQuoted(std::string& field)
{
    m_source.get();
    const long opened = m_source.line();
    for (;;) {
        const int c = m_source.get();
        if (c == TextSource::end) {
            m_source.fail(opened, "a quoted value is not closed", "Close it with a double quote; within it, write two");
        }
        if (c == '"') {
            if (m_source.peek() != '"') {
                return;
            }
            m_source.get();
        }
        append(field, c);
    }
}

void RecordReader::append(std::string& field, int c) const
{
    if (field.size() == longestField) {
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
    if (m_delimiter == Delimiter::Blanks ? !isApart : c != static_cast<char>(m_delimiter)) {
        failAfterQuote();
    }
    if (m_delimiter != Delimiter::Blanks) {
        m_source.get();
    }
    return true;
}

} // namespace velmora::engine
