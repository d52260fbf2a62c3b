#include "engine/content/Readers.h"

#include "engine/data/DataReader.h"
#include "engine/plot/Plot.h"
#include "exception/ExceptionBase.h"

#include <algorithm>
#include <fstream>
#include <vector>

namespace velmora::engine {
namespace {

using content::Content;
using content::Reader;

// As Reader::recognises() tells.
constexpr std::size_t BeginningBytes = 4096;

/// The engine's own: tables and grids. It takes any file, and its messages say what a file is that it cannot read.
class PlotReader final : public Reader {
public:
    bool recognises(const std::string&, const std::string&) const override { return true; }
    std::shared_ptr<Content> read(const std::string& fileName, Checkpoint& checkpoint) override
    {
        return makePlot(readDataFile(fileName, checkpoint), checkpoint);
    }
};

/// In the order in which they were added.
std::vector<std::unique_ptr<Reader>>& readers()
{
    static std::vector<std::unique_ptr<Reader>> all = [] {
        std::vector<std::unique_ptr<Reader>> own;
        own.push_back(std::make_unique<PlotReader>());
        return own;
    }();
    return all;
}

// Empty for a file that cannot be read; the reader then says why.
std::string beginningOf(const std::string& fileName)
{
    std::string bytes(BeginningBytes, '\0');
    std::ifstream file(fileName, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

Reader& readerFor(const std::string& fileName)
{
    // A pipe gives what it has only once.
    if (readers().size() == 1)
        return *readers().front();
    const std::string beginning = beginningOf(fileName);
    const auto recognises = [&](const std::unique_ptr<Reader>& reader) {
        return reader->recognises(fileName, beginning);
    };
    return **std::find_if(readers().rbegin(), readers().rend(), recognises);
}

} // namespace

std::shared_ptr<Content> readContent(const std::string& fileName, Checkpoint& checkpoint)
{
    std::shared_ptr<Content> content = readerFor(fileName).read(fileName, checkpoint);
    if (!content)
        throw ReadError(fileName + " was not read: its reader gave no content. Ask its maker for a newer one.");
    return content;
}

} // namespace velmora::engine

void velmora::content::addReader(std::unique_ptr<Reader> reader)
{
    if (!reader)
        throw ExceptionBase("There is no reader to add. Make one.", false);
    engine::readers().push_back(std::move(reader));
}
