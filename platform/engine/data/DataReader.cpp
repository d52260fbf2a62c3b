#include "engine/data/DataReader.h"

#include "engine/data/FileByteStream.h"
#include "engine/data/GridReader.h"
#include "engine/data/TableReader.h"
#include "engine/data/TextSource.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <type_traits>

namespace velmora::engine {

namespace {

template <class Reader>
DataSet readWith(TextSource& source)
{
    auto data = Reader(source).read();
    data->name = source.fileName().substr(source.fileName().find_last_of('/') + 1);
    if (source.encoding() == TextDecoder::Encoding::Latin1)
        data->notes.push_back("The text is not UTF-8 and is taken for Latin-1 (Windows-1252).");
    return std::shared_ptr<const std::decay_t<decltype(*data)>>(std::move(data));
}

/// A kind of text that is read.
struct Format {
    bool (*recognises)(std::string_view begin); ///< asked with as much of the text as is in memory
    DataSet (*read)(TextSource& source);
};

bool isAnyText(std::string_view)
{
    return true;
}

/// The first that recognises a text reads it.
const Format formats[] = {
    {looksLikeGrid, readWith<GridReader>},
    {isAnyText, readWith<TableReader>},
};

} // namespace

DataSet readData(ByteStream& stream, const std::string& fileName, Checkpoint& checkpoint)
{
    TextSource source(stream, fileName, checkpoint);
    try {
        const auto recognises = [&](const Format& format) { return format.recognises(source.ahead()); };
        return std::find_if(std::begin(formats), std::end(formats), recognises)->read(source);
    } catch (const std::bad_alloc&) {
        source.fail("does not fit into memory", "Close other programs, or read a part of the data");
    }
}

DataSet readDataFile(const std::string& fileName, Checkpoint& checkpoint)
{
    FileByteStream stream(fileName);
    return readData(stream, fileName, checkpoint);
}

} // namespace velmora::engine
