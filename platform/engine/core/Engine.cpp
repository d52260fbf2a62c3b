#include "engine/core/Engine.h"

#include "engine/VelEng.h"
#include "engine/core/Busy.h"
#include "engine/core/LastError.h"
#include "engine/page/Pages.h"
#include "engine/style/StyleTree.h"

namespace velmora::engine {
namespace {

struct Run {
    bool running = false;
    std::string homeDirectory;
    std::string applicationName;
};

Run& run()
{
    static Run state;
    return state;
}

} // namespace

bool isRunning()
{
    return run().running;
}

bool requireRunning()
{
    if (!isRunning())
        setLastError("The engine is not running. Start it through the manager first.");
    return isRunning();
}

const std::string& homeDirectory()
{
    return run().homeDirectory;
}

const std::string& applicationName()
{
    return run().applicationName;
}

} // namespace velmora::engine

using namespace velmora::engine;

int VelEngStart(const char* home, const char* application)
{
    if (isRunning()) {
        setLastError("The engine runs already. Stop it before starting it again.");
        return 0;
    }
    run() = {true, home ? home : "", application ? application : ""};
    clearLastError();
    setLoadNotes({});
    turnHasCome();
    style::tree().reset();
    pages().begin();
    return 1;
}

void VelEngStop()
{
    if (!isRunning())
        return;
    pages().end();
    style::tree().reset();
    run() = {};
}

int VelEngIsRunning()
{
    return isRunning() ? 1 : 0;
}
