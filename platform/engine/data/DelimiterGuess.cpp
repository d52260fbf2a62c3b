#include "engine/data/DelimiterGuess.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/data/MemoryByteStream.h"
#include "engine/data/TextSource.h"

#include <algorithm>
#include <map>

namespace velmora::engine {

namespace {

constexpr std::size_t sampleBytes = 4096;
constexpr int sampleRecords = 30;

/// Which part of the records agrees on a number of fields above one.
double agreement(std::string_view sample, Delimiter delimiter)
{
    MemoryByteStream stream(sample);
    NoCheckpoint checkpoint;
    std::map<std::size_t, int> recordsByFields;
    int records = 0;
    try {
        TextSource source(stream, std::string(), checkpoint);
        RecordReader reader(source, delimiter);
        Record record;
        while (records < sampleRecords && reader.next(record)) {
            ++records;
            ++recordsByFields[record.fields.size()];
        }
    } catch (const ReadError&) {
        ++records; // not readable with this delimiter, or a quoted value reaches out of the sample
    }
    int most = 0;
    for (const auto& [fields, count] : recordsByFields) {
        most = std::max(most, fields > 1 ? count : 0);
    }
    return records > 0 ? static_cast<double>(most) / records : 0;
}

std::string_view wholeLines(std::string_view sample)
{
    const std::size_t lastEnd = sample.find_last_of("\n\r");
    return lastEnd == std::string_view::npos ? sample : sample.substr(0, lastEnd);
}

} // namespace

Delimiter guessDelimiter(std::string_view sample, bool isWhole)
{
    if (sample.size() > sampleBytes || !isWhole) {
        sample = wholeLines(sample.substr(0, sampleBytes));
    }
    Delimiter best = Delimiter::Comma; // for a single column, where nothing delimits
    double bestAgreement = 0;
    for (const Delimiter delimiter : {Delimiter::Tab, Delimiter::Semicolon, Delimiter::Comma, Delimiter::Blanks}) {
        const double found = agreement(sample, delimiter);
        if (found > bestAgreement) {
            best = delimiter;
            bestAgreement = found;
        }
    }
    return best;
}

} // namespace velmora::engine
