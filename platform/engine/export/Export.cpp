#include "engine/export/Export.h"

#include "engine/core/Busy.h"
#include "engine/core/Callbacks.h"
#include "engine/core/Interruption.h"
#include "engine/core/LastError.h"
#include "engine/export/ExportFailure.h"
#include "engine/export/PictureRows.h"
#include "engine/export/PngRows.h"
#include "engine/export/Progress.h"
#include "engine/export/RowSink.h"
#include "engine/export/RowsBehind.h"
#include "engine/export/TargetFile.h"
#include "engine/export/TextSize.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace velmora::engine {
namespace {

using namespace velmora::sdk::integration;

constexpr int MostDotsPerInch = 100000;

bool g_exporting = false;

/// The service reads back one image at a time, so there is one export at a time.
class ExportScope {
public:
    ExportScope()
    {
        if (g_exporting)
            throw ExportFailure("Another image is being exported. Wait for it or interrupt it.");
        g_exporting = true;
    }
    ~ExportScope() { g_exporting = false; }
    ExportScope(const ExportScope&) = delete;
    ExportScope& operator=(const ExportScope&) = delete;
};

/// Hands the rows to the code that prints them.
class RowCallback final : public RowSink {
public:
    RowCallback(const PictureRequest& request, TakeRow take, long clientData)
        : m_width(request.width), m_height(request.height), m_take(take), m_clientData(clientData)
    {}
    void takeRow(int row, const unsigned char* rgb) override
    {
        if (m_take(row, m_width, m_height, rgb, m_clientData) == 0)
            throw ExportInterrupted();
    }

private:
    int m_width;
    int m_height;
    TakeRow m_take;
    long m_clientData;
};

/// The same in every locale.
std::string numberText(double number)
{
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

PictureRequest requestOf(const VelExportImageOptions& options)
{
    if (!(options.dotsPerInch >= 0 && options.dotsPerInch <= MostDotsPerInch))
        throw ExportFailure("An image cannot have " + numberText(options.dotsPerInch) +
                            " dots per inch. Choose from 1 to " + std::to_string(MostDotsPerInch) +
                            ", or 0 to leave it open.");
    PictureRequest request;
    request.width = options.width;
    request.height = options.height;
    request.supersample = options.supersample;
    request.region = regionOfNumber(options.region);
    request.strategy = options.strategy;
    request.transparent = options.transparent != 0;
    checkPictureRequest(request);
    request.pixelsPerPoint = pixelsPerPointOf(request, options.dotsPerInch);
    return request;
}

PictureRequest requestOfPaper(double dotsPerInch, int strategy)
{
    const Paper paper = currentPaper();
    const double width = std::max(std::round(paper.width * dotsPerInch), 1.0);
    const double height = std::max(std::round(paper.height * dotsPerInch), 1.0);
    if (!(dotsPerInch > 0) || !(std::max(width, height) <= LargestSide))
        throw ExportFailure("A page cannot have " + numberText(dotsPerInch) + " dots per inch. Choose from 1 to " +
                            std::to_string(static_cast<int>(LargestSide / std::max(paper.width, paper.height))) + ".");
    PictureRequest request;
    request.width = static_cast<int>(width);
    request.height = static_cast<int>(height);
    request.region = ExportRegion_Page;
    request.strategy = strategy;
    return request;
}

/// Compresses a picture on another thread while the next rows are drawn.
void drawAndCompress(const PictureRequest& request, const std::string& writing, PngRows& png)
{
    // As much memory as the rows of a band take at most.
    constexpr long MostBytesBehind = 32L * 1024 * 1024;
    const long rowBytes = long(request.bytesPerPixel()) * request.width;
    RowsBehind rows(png, static_cast<std::size_t>(rowBytes), static_cast<int>(MostBytesBehind / rowBytes));
    PictureRows(request, writing).sendTo(rows);
    double reached = 1;
    Progress progress(writing, reached, 1, 1);
    while (!rows.isDone())
        progress.stepWithin();
}

// The file is opened first, so that nobody waits for a picture that cannot be written.
void writeImage(const std::string& fileName, const VelExportImageOptions* options)
{
    if (!options)
        throw ExportFailure("There are no options that say what image to export.");
    const PictureRequest request = requestOf(*options);
    const std::string writing = "Writing " + fileName;
    TargetFile file(fileName);
    PngRows png(file, request.width, request.height, options->dotsPerInch, request.transparent);
    drawAndCompress(request, writing, png);
    png.finish();
    file.commit();
    callbacks().progress(writing.c_str(), 1);
}

void drawPage(double dotsPerInch, int strategy, TakeRow take, long clientData)
{
    if (!take)
        throw ExportFailure("There is no function that takes the rows of the page.");
    const PictureRequest request = requestOfPaper(dotsPerInch, strategy);
    RowCallback rows(request, take, clientData);
    PictureRows(request, "Printing the page").sendTo(rows);
    callbacks().progress("Printing the page", 1);
}

// Everything that can end an export becomes an answer here.
template <typename Work>
bool answer(const std::string& whatFailed, const Work& work) noexcept
{
    const BusyScope busy;
    try {
        const ExportScope exporting;
        noteInterruption(false);
        clearLastError();
        work();
        clearLastError();
        return true;
    } catch (const ExportInterrupted&) {
        clearLastError();
        noteInterruption(true);
    } catch (const ExportFailure& failure) {
        setLastError(whatFailed + ". " + failure.what());
    } catch (...) {
        setLastErrorFromException(whatFailed);
    }
    return false;
}

} // namespace

bool exportImage(const std::string& fileName, const VelExportImageOptions* options) noexcept
{
    return answer((fileName.empty() ? "The image" : fileName) + " was not written",
                  [&] { writeImage(fileName, options); });
}

bool renderPage(double dotsPerInch, int strategy, TakeRow take, long clientData) noexcept
{
    return answer("The page was not drawn", [&] { drawPage(dotsPerInch, strategy, take, clientData); });
}

} // namespace velmora::engine
