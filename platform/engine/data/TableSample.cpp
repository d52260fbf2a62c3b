#include "engine/data/TableSample.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/data/MemoryByteStream.h"
#include "engine/data/TextCase.h"
#include "engine/data/TextSource.h"

#include <map>

namespace velmora::engine {

namespace {

constexpr std::size_t SampleRecords = 200;
constexpr std::string_view SeparatorLine = "sep=";

/// What numbers show about the decimal mark.
struct MarkCount {
    int points = 0; ///< that only a decimal point can be
    int commas = 0;
    bool hasUnclearPoint = false;
};

MarkCount countMarks(const std::vector<SampleRow>& rows)
{
    MarkCount count;
    for (const SampleRow& row : rows) {
        for (const SampleField& field : row.fields) {
            const bool isUnclear = field.cell.decimalMark != 0 && couldHaveEitherMark(field.text);
            count.points += !isUnclear && field.cell.decimalMark == '.' ? 1 : 0;
            count.commas += !isUnclear && field.cell.decimalMark == ',' ? 1 : 0;
            count.hasUnclearPoint = count.hasUnclearPoint || (isUnclear && field.text.find('.') != std::string::npos);
        }
    }
    return count;
}

void parseFields(Sample& sample)
{
    for (SampleRow& row : sample.rows)
        for (SampleField& field : row.fields)
            field.cell = parseCell(field.text, sample.decimalMark);
}

/// Where commas or blanks delimit, only a clear comma makes the comma the decimal mark.
void chooseMark(Sample& sample)
{
    const bool expectsComma = sample.delimiter == Delimiter::Semicolon || sample.delimiter == Delimiter::Tab;
    parseFields(sample);
    const MarkCount marks = countMarks(sample.rows);
    const bool isOpen = marks.commas == marks.points;
    sample.isMarkClear = !isOpen || !expectsComma;
    sample.decimalMark = marks.commas > marks.points || (isOpen && expectsComma && !marks.hasUnclearPoint) ? ',' : '.';
    if (sample.decimalMark != '.')
        parseFields(sample);
}

void readRows(std::string_view text, Sample& sample)
{
    MemoryByteStream stream(text);
    NoCheckpoint checkpoint;
    try {
        TextSource source(stream, std::string(), checkpoint);
        RecordReader reader(source, sample.delimiter);
        Record record;
        while (sample.rows.size() < SampleRecords && reader.next(record)) {
            SampleRow row;
            row.line = record.line;
            for (const std::string_view field : record.fields)
                row.fields.push_back({std::string(field), {}});
            sample.rows.push_back(std::move(row));
        }
    } catch (const ReadError&) {
        sample.rows.push_back({}); // not readable with this delimiter, or a quoted value reaches out of the sample
    }
}

/// Which part of the fields of the rows with so many columns are values.
double valuesIn(const Sample& sample, std::size_t columns)
{
    std::size_t fields = 0;
    std::size_t values = 0;
    for (const SampleRow& row : sample.rows) {
        for (std::size_t i = 0; row.fields.size() == columns && i < columns; ++i) {
            ++fields;
            values += row.fields[i].isWord() ? 0 : 1;
        }
    }
    return fields > 0 ? static_cast<double>(values) / static_cast<double>(fields) : 0;
}

/// A lone column, of which only the comma need be tried, counts by its values alone: any text has one field in each
/// line when nothing delimits.
void judge(Sample& sample)
{
    std::map<std::size_t, double> weights;
    double all = 0;
    for (std::size_t i = 0; i < sample.rows.size(); ++i) {
        weights[sample.rows[i].fields.size()] += static_cast<double>(i + 1);
        all += static_cast<double>(i + 1);
    }
    for (const auto& [columns, weight] : weights) {
        const double values = valuesIn(sample, columns);
        const double score = weight / all * (columns == 1 ? values : (1 + values) / 2);
        const bool counts = columns > 1 || (columns == 1 && sample.delimiter == Delimiter::Comma);
        if (counts && score > sample.score) {
            sample.score = score;
            sample.columns = columns;
        }
    }
}

} // namespace

Sample sampleOf(std::string_view text, Delimiter delimiter)
{
    Sample sample;
    sample.delimiter = delimiter;
    readRows(text, sample);
    chooseMark(sample);
    judge(sample);
    return sample;
}

bool takeSeparatorLine(std::string_view text, Delimiter& delimiter)
{
    if (text.size() <= SeparatorLine.size() || !equalsIgnoringCase(text.substr(0, SeparatorLine.size()), SeparatorLine))
        return false;
    for (const Delimiter known : {Delimiter::Tab, Delimiter::Semicolon, Delimiter::Comma, Delimiter::Blanks}) {
        if (text[SeparatorLine.size()] == static_cast<char>(known)) {
            delimiter = known;
            return true;
        }
    }
    return false;
}

Sample bestSample(std::string_view text)
{
    Sample best; // for a single column, where nothing delimits
    for (const Delimiter tried : {Delimiter::Tab, Delimiter::Semicolon, Delimiter::Comma, Delimiter::Blanks}) {
        Sample found = sampleOf(text, tried);
        if (found.score > best.score)
            best = std::move(found);
    }
    return best;
}

} // namespace velmora::engine
