// Random sequences of events, engine states, stop requests, deaths of receivers, discards, re-entries
// and nested loops (local ones, dialogs, menus), in both choices of what is held back, run against the event filter and
// against a plain model of its rules: every event is delivered, swallowed or sent again exactly as the model says, and
// no copy of an event is lost.
//
// 2,000 sequences by default. The nightly run:
//   RC_PARAMS="max_success=100000" scripts/with-display bin/test_monitor_model
// After a failure rapidcheck prints the seed and the shortest sequence that fails; the same run is
// had again with RC_PARAMS="seed=… max_success=…".
#include "tests/intern/MonitorModel.h"
#include "integration/HeldBackEvents.h"
#include "tests/intern/RealWorld.h"
#include "tests/intern/WatchedAllocations.h"
#include "tests/support/ToolkitFacts.h"

#include <QApplication>
#include <cstdlib>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <sstream>

using namespace velmora::test;
using namespace velmora::sdk::integration;

namespace {

constexpr int FirstId = 300; // no key code of a key that matters

struct Sequence {
    std::vector<Step> steps;
    Reactions reactions;
};

class Decoder {
public:
    explicit Decoder(const std::vector<unsigned char>& bytes) : m_bytes(bytes), m_loops(take(3)) {}

    Sequence decode()
    {
        Sequence sequence;
        while (m_next < m_bytes.size())
            sequence.steps.push_back(step(sequence.reactions, 0));
        return sequence;
    }

private:
    /// Not both in one sequence: a dialog that opens closes all menus, whose loops end before they wait.
    enum Loops { NoLoops, WithMenus, WithDialogs };

    int take(int limit) { return m_next < m_bytes.size() ? m_bytes[m_next++] % limit : 0; }

    Step step(Reactions& reactions, int depth)
    {
        // Events are half of what happens.
        const int what = take(2 * DoCount);
        Step step;
        step.what = what < DoCount ? static_cast<Do>(what) : static_cast<Do>(what % 3);
        if (step.what == Do::Loop && m_loops == NoLoops)
            step.what = Do::Pump;
        // Such a toolkit delivers what the receiver of a posted event posts in this turn or in the next one, as the
        // window system has something to tell of the dialog.
        if (step.what == Do::Post && m_loops == WithDialogs && depth > 0 && deliversPostedEventsBeforeWaking())
            step.what = Do::Send;
        step.receiver = static_cast<Who>(take(ReceiverCount));
        if (step.what > Do::Loop)
            return step;
        if (step.what == Do::Loop) {
            // Showing a dialog or a menu takes its time; most loops are local ones.
            if (take(8) == 0)
                step.loop = m_loops == WithMenus ? LoopKind::Menu : LoopKind::Dialog;
            return identified(step, reactions, depth);
        }
        step.kind = static_cast<Kind>(take(KindCount));
        // Not tried together with loops: the end of the application, which ends them all, and the wheel, which
        // the toolkit lets reach nothing but an open menu.
        const bool notInLoops = step.kind == Kind::Close || step.kind == Kind::Wheel;
        if (!isPossible(step.kind, step.receiver) || (notInLoops && m_loops != NoLoops))
            step.kind = Kind::Key;
        if (step.kind == Kind::Close)
            return step;
        return identified(step, reactions, depth);
    }

    Step identified(Step step, Reactions& reactions, int depth)
    {
        step.id = FirstId + m_ids++;
        const int reacting = depth < 4 ? take(5) : 0;
        for (int i = 0; i < reacting; ++i)
            reactions[step.id].push_back(this->step(reactions, depth + 1));
        return step;
    }

    const std::vector<unsigned char>& m_bytes;
    std::size_t m_next = 0;
    int m_ids = 0;
    const int m_loops;
};

std::string text(const Journal& journal)
{
    std::ostringstream lines;
    for (const std::string& entry : journal)
        lines << "  " << entry << '\n';
    return lines.str();
}

/// How many of the sequences came to something worth while; a generator that never interrupts proves
/// nothing.
int g_copiesSeen = 0;
int g_loopsSeen = 0;

void compare(const MonitorModel& model, RealWorld& real)
{
    if (model.journal() != real.journal())
        RC_FAIL("model:\n" + text(model.journal()) + "real:\n" + text(real.journal()));
    RC_ASSERT(model.copyWaits() == (Probe::waiting(real.monitor()) != nullptr));
    RC_ASSERT(model.isDiscarding() == real.monitor().isDiscarding());
    RC_ASSERT(model.isIdleTimerActive() == Probe::idleTimerRuns(real.monitor()));
    RC_ASSERT(model.hasExited() == !QApplication::quitOnLastWindowClosed());
    for (int who = 0; who < ReceiverCount; ++who)
        RC_ASSERT(model.isAlive(static_cast<Who>(who)) == real.isAlive(static_cast<Who>(who)));
    // With nothing being delivered, the copy that waits is the only one there is.
    RC_ASSERT(WatchedAllocations::alive() == (model.copyWaits() ? 1 : 0));
    RC_ASSERT(real.copyWasRecognised);
    RC_ASSERT(Probe::parked(real.monitor()) == nullptr);
    RC_ASSERT(Probe::dispatching(real.monitor()) == nullptr);
    g_copiesSeen += model.copyWaits() ? 1 : 0;
}

void runBoth(const std::vector<unsigned char>& bytes)
{
    const Sequence sequence = Decoder(bytes).decode();
    WatchedAllocations::reset();
    QApplication::setQuitOnLastWindowClosed(true);
    {
        MonitorModel model(sequence.reactions);
        RealWorld real(sequence.reactions);
        setHeldBackEvents(HeldBackEvents_All);
        for (const Step& step : sequence.steps) {
            model.run(step);
            real.run(step);
            compare(model, real);
        }
        g_loopsSeen += real.loopsInWork;
    }
    // The end of the receivers ended the last copy.
    RC_ASSERT(WatchedAllocations::alive() == 0);
}

} // namespace

TEST(MonitorModel, TheFilterDoesWhatTheModelSays)
{
    EXPECT_TRUE(rc::check("every event is delivered, swallowed or sent again as the model says",
                          [] { runBoth(*rc::gen::scale(3.0, rc::gen::arbitrary<std::vector<unsigned char>>())); }));
    EXPECT_GT(g_copiesSeen, 100);
    EXPECT_GT(g_loopsSeen, 30);
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::setenv("RC_PARAMS", "max_success=2000", 0);
    // The order of posted events and timers is then the same in every run.
    ::setenv("QT_NO_GLIB", "1", 1);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
