#include "integration/intern/NestedLoops.h"

#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/toolkit/EventLoopLevel.h"

#include <QAbstractEventDispatcher>
#include <limits>
#include <utility>

namespace velmora::sdk::integration::intern {

namespace {

/// Deeper than any level that there is.
constexpr int NoLevel = std::numeric_limits<int>::max();

} // namespace

NestedLoops::NestedLoops(ApplicationEventMonitor& monitor, std::function<void()> running)
    : m_monitor(monitor), m_running(std::move(running)), m_levelOfWork(NoLevel), m_levelOfLoop(NoLevel),
      m_turnIsToProcess(false)
{}

void NestedLoops::watch()
{
    unwatch();
    if (QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance()) {
        connect(dispatcher, SIGNAL(aboutToBlock()), this, SLOT(dispatcherIsAboutToWait()));
        connect(dispatcher, SIGNAL(awake()), this, SLOT(dispatcherIsAwake()));
    }
}

void NestedLoops::unwatch()
{
    if (QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance())
        disconnect(dispatcher, nullptr, this, nullptr);
    workEnded();
}

// A turn inside a nested loop belongs to work that was begun in that loop, which is not nested for it.
void NestedLoops::turnBegins()
{
    m_levelOfWork = toolkit::eventLoopLevel();
    m_levelOfLoop = NoLevel;
}

void NestedLoops::turnEnds()
{
    m_levelOfLoop = NoLevel;
    m_turnIsToProcess = false;
}

void NestedLoops::workEnded()
{
    m_levelOfWork = NoLevel;
    m_levelOfLoop = NoLevel;
}

bool NestedLoops::isOneRunning() const
{
    // Asked for every event that matters to the engine, mostly while it does nothing: spares the toolkit's count.
    if (m_levelOfWork == NoLevel && m_levelOfLoop == NoLevel)
        return false;
    const int level = toolkit::eventLoopLevel();
    return level > m_levelOfWork || level >= m_levelOfLoop;
}

void NestedLoops::dispatcherIsAboutToWait()
{
    if (m_monitor.isBusy())
        noteLoop();
}

// A handler that processes events once, without waiting, is no loop. One that does it again after the
// request to stop waits for something that it would not get.
void NestedLoops::dispatcherIsAwake()
{
    if (m_turnIsToProcess)
        m_turnIsToProcess = false;
    else if (m_levelOfWork != NoLevel && m_monitor.isBusy() && m_monitor.shouldInterrupt())
        noteLoop();
}

void NestedLoops::noteLoop()
{
    const int level = toolkit::eventLoopLevel();
    if (level < m_levelOfLoop)
        m_levelOfLoop = level;
    m_running();
}

} // namespace velmora::sdk::integration::intern
