// Contents that hosts make themselves.

#include "engine/VelContent.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"
#include "engine/page/Pages.h"
#include "exception/ExceptionBase.h"

#include <algorithm>

using namespace velmora::engine;

void velmora::content::show(std::shared_ptr<Content> content)
{
    traceCall("content::show");
    if (!requireRunning())
        throw ExceptionBase(lastError(), false);
    if (!content)
        throw ExceptionBase("There is no content to show. Make one.", false);
    std::vector<Frame> frames;
    frames.push_back({currentPaper().printable, std::move(content)});
    pages().active()->replaceFrames(std::move(frames));
}

std::shared_ptr<velmora::content::Content> velmora::content::shown()
{
    const std::shared_ptr<Page> page = pages().active();
    return page ? page->currentContent() : nullptr;
}

void velmora::content::changed(const Content& content)
{
    traceCall("content::changed");
    const auto isIt = [&content](const Frame& frame) { return frame.content.get() == &content; };
    for (const std::shared_ptr<Page>& page : pages().all())
        if (std::any_of(page->frames().begin(), page->frames().end(), isIt))
            page->contentChanged();
}
