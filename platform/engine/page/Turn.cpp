// The engine's own turns, in which it draws what waits.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/core/Busy.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/page/Pages.h"
#include "engine/page/ScreenDrawing.h"

#include <algorithm>

namespace velmora::engine {
namespace {

using PageList = std::vector<std::shared_ptr<Page>>;

PageList waitingPages()
{
    PageList waiting;
    const auto waits = [](const auto& page) {
        return page->pictureState() == Page::PictureState::Waiting && page->canShow();
    };
    std::copy_if(pages().all().begin(), pages().all().end(), std::back_inserter(waiting), waits);
    return waiting;
}

// Once each: a page that changed meanwhile waits for the next turn, so that the application's own
// event loop runs in between.
DrawingResult drawOnce(const PageList& waiting)
{
    const BusyScope busy;
    for (const std::shared_ptr<Page>& page : waiting) {
        if (page->pictureState() != Page::PictureState::Waiting || !page->canShow())
            continue;
        const DrawingResult result = drawPage(page);
        if (result == DrawingResult::Stopped || result == DrawingResult::Failed)
            return result;
    }
    return DrawingResult::Done;
}

DrawingResult takeTurn(const PageList& waiting)
{
    turnHasCome();
    const DrawingResult result = drawOnce(waiting);
    if (pages().nextWaiting())
        wantTurn();
    return result;
}

// A page that somebody changes in every slice would never be finished.
constexpr int MostTurns = 1000;

int workOffAll()
{
    for (int turn = 0; turn < MostTurns; ++turn) {
        const PageList waiting = waitingPages();
        if (waiting.empty())
            return 1;
        const DrawingResult result = takeTurn(waiting);
        if (result == DrawingResult::Stopped)
            setLastError("The drawing was interrupted. Ask for the page to be finished to draw the rest.");
        if (result != DrawingResult::Done)
            return 0;
    }
    setLastError("The page changes each time it is drawn. Stop changing it to let it be finished.");
    return 0;
}

} // namespace
} // namespace velmora::engine

using namespace velmora::engine;

int VelEngTurn()
{
    if (isBusy()) {
        putOffTurn();
        return 0;
    }
    turnHasCome();
    const PageList waiting = waitingPages();
    if (waiting.empty())
        return 0;
    takeTurn(waiting);
    return 1;
}

int VelUtilWorkFinish()
{
    if (!requireRunning())
        return 0;
    if (isBusy()) {
        setLastError("The engine is busy already. Wait until it is not.");
        return 0;
    }
    return workOffAll();
}
