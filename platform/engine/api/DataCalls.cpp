// Loading data into the active page.

#include "engine/VelUtil.h"
#include "engine/content/Readers.h"
#include "engine/core/Busy.h"
#include "engine/core/Engine.h"
#include "engine/core/Interruption.h"
#include "engine/core/LastError.h"
#include "engine/core/SlicedWork.h"
#include "engine/core/Trace.h"
#include "engine/data/DataReader.h"
#include "engine/page/Pages.h"

#include <string>
#include <vector>

namespace velmora::engine {
namespace {

bool g_loading = false;

/// A load is under way as long as this lives.
class LoadScope {
public:
    LoadScope() { g_loading = true; }
    ~LoadScope() { g_loading = false; }
    LoadScope(const LoadScope&) = delete;
    LoadScope& operator=(const LoadScope&) = delete;
};

std::shared_ptr<Content> contentOfActivePage()
{
    const std::shared_ptr<Page> page = pages().active();
    return page ? page->currentContent() : nullptr;
}

// Everything that can fail comes before the page is touched.
void load(const std::shared_ptr<Page>& page, const std::string& fileName, bool keepsView)
{
    SlicedWork reading("Reading " + fileName);
    std::shared_ptr<Content> content = readContent(fileName, reading);
    if (!isRunning())
        throw ReadError("The engine was stopped while " + fileName + " was read.");
    const std::shared_ptr<Content> before = page->currentContent();
    if (keepsView && before)
        content->takeViewOf(*before, reading);
    setLoadNotes(content->notes());
    std::vector<Frame> frames;
    frames.push_back({currentPaper().printable, std::move(content)});
    page->replaceFrames(std::move(frames));
}

int loadReportingErrors(const std::shared_ptr<Page>& page, const std::string& fileName, bool keepsView)
{
    try {
        load(page, fileName, keepsView);
        return 1;
    } catch (const ReadError& error) {
        setLastError(error.what());
    } catch (const ReadInterrupted&) {
        noteInterruption(true);
        setLastError("Reading " + fileName + " was interrupted. The page shows what it showed before.");
    } catch (...) {
        setLastErrorFromException(fileName + " could not be read");
    }
    return 0;
}

int loadFile(const char* fileName, bool keepsView)
{
    if (!requireRunning())
        return 0;
    if (!fileName || !*fileName) {
        setLastError("There is no file name to read from.");
        return 0;
    }
    if (g_loading) {
        setLastError(std::string(fileName) + " was not read: another file is being read. Wait for it or interrupt it.");
        return 0;
    }
    const BusyScope busy;
    const LoadScope loading;
    noteInterruption(false);
    return loadReportingErrors(pages().active(), fileName, keepsView);
}

} // namespace
} // namespace velmora::engine

using namespace velmora::engine;

int VelUtilDataLoad(const char* fileName)
{
    traceCallOf([&] { return std::string("VelUtilDataLoad ") + (fileName ? fileName : ""); });
    return loadFile(fileName, false);
}

int VelUtilDataReload(const char* fileName)
{
    traceCallOf([&] { return std::string("VelUtilDataReload ") + (fileName ? fileName : ""); });
    return loadFile(fileName, true);
}

const char* VelUtilDataDescription()
{
    static std::string description;
    const std::shared_ptr<Content> content = contentOfActivePage();
    description = content ? content->description() : "";
    return description.c_str();
}

const char* VelUtilDataNotes()
{
    static std::string notes;
    const std::shared_ptr<Content> content = contentOfActivePage();
    notes = content ? content->notes() : "";
    return notes.c_str();
}

const char* VelUtilDataDetails()
{
    static std::string details;
    const std::shared_ptr<Content> content = contentOfActivePage();
    details = content ? content->details() : "";
    return details.c_str();
}
