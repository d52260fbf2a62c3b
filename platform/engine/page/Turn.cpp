#include "engine/page/Turn.h"

#include "engine/core/Busy.h"
#include "engine/core/LastError.h"
#include "engine/page/Pages.h"
#include "engine/page/ScreenDrawing.h"

#include <algorithm>

namespace velmora::engine {
namespace {

using PageList = std::vector<std::shared_ptr<Page>>;

bool isToBeDrawn(const Page& page)
{
    return page.pictureState() == Page::PictureState::Waiting && page.canShow();
}

PageList waitingPages()
{
    PageList waiting;
    std::copy_if(pages().all().begin(), pages().all().end(), std::back_inserter(waiting),
                 [](const auto& page) { return isToBeDrawn(*page); });
    return waiting;
}

bool isEnd(DrawingResult result)
{
    return result == DrawingResult::Stopped || result == DrawingResult::Failed;
}

// The coarse pictures of all pages come first: a person sees them at once.
DrawingResult showCoarsePictures(const PageList& waiting)
{
    for (const std::shared_ptr<Page>& page : waiting) {
        if (!isToBeDrawn(*page))
            continue;
        const DrawingResult result = showCoarsePicture(page);
        if (isEnd(result))
            return result;
    }
    return DrawingResult::Done;
}

// Work that the application can stop. Once each: a page that changed meanwhile waits for the next turn.
DrawingResult drawBusily(const PageList& waiting)
{
    DrawingResult result = showCoarsePictures(waiting);
    for (const std::shared_ptr<Page>& page : waiting)
        if (!isEnd(result) && isToBeDrawn(*page))
            result = settlePicture(page, drawFullPicture(page));
    return isEnd(result) ? result : DrawingResult::Done;
}

DrawingResult showCoarsePicturesBusily(const PageList& waiting)
{
    const BusyScope busy;
    return showCoarsePictures(waiting);
}

DrawingResult settleBusily(const std::shared_ptr<Page>& page, DrawingResult result)
{
    const BusyScope busy;
    return settlePicture(page, result);
}

// The same while the application goes on as it likes: the engine is busy only for the moments in which a
// picture is shown.
DrawingResult drawFreely(const PageList& waiting)
{
    DrawingResult result = showCoarsePicturesBusily(waiting);
    for (const std::shared_ptr<Page>& page : waiting)
        if (!isEnd(result) && isToBeDrawn(*page))
            result = settleBusily(page, drawFullPicture(page));
    return isEnd(result) ? result : DrawingResult::Done;
}

template <typename Draw>
DrawingResult drawIn(const PageList& waiting, const Draw& draw)
{
    turnHasCome();
    const DrawingResult result = draw(waiting);
    if (pages().nextWaiting())
        requestTurn();
    return result;
}

// A page that somebody changes in every slice would never be finished.
constexpr int MostTurns = 1000;

} // namespace

bool takeTurn()
{
    if (isBusy() || isDrawingAboutToGoOn()) {
        putOffTurn();
        return false;
    }
    turnHasCome();
    const PageList waiting = waitingPages();
    if (waiting.empty())
        return false;
    drawIn(waiting, drawFreely);
    return true;
}

bool finishAll()
{
    const BusyScope busy;
    for (int turn = 0; turn < MostTurns; ++turn) {
        const PageList waiting = waitingPages();
        if (waiting.empty())
            return true;
        const DrawingResult result = drawIn(waiting, drawBusily);
        if (result == DrawingResult::Stopped)
            setLastError("The drawing was interrupted. Ask for the page to be finished to draw the rest.");
        if (result != DrawingResult::Done)
            return false;
    }
    setLastError("The page changes each time it is drawn. Stop changing it to let it be finished.");
    return false;
}

} // namespace velmora::engine
