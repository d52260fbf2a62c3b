#include "engine/data/DataReader.h"

#include "engine/data/FileByteStream.h"
#include "engine/data/GridReader.h"
#include "engine/data/TableReader.h"
#include "engine/data/TextSource.h"

#include <new>

namespace velmora::engine {

namespace {

template <class Data>
DataSet named(const std::shared_ptr<Data>& data, const std::string& fileName)
{
    data->name = fileName.substr(fileName.find_last_of('/') + 1);
    return std::shared_ptr<const Data>(data);
}

DataSet read(TextSource& source, const std::string& fileName)
{
    if (looksLikeGrid(source.ahead())) {
        return named(GridReader(source).read(), fileName);
    }
    return named(TableReader(source).read(), fileName);
}

} // namespace

DataSet readData(ByteStream& stream, const std::string& fileName, Checkpoint& checkpoint)
{
    TextSource source(stream, fileName, checkpoint);
    try {
        return read(source, fileName);
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
