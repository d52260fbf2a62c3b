#include "ContentChecks.h"

#include <algorithm>
#include <chrono>
#include <set>

namespace conformance {

using namespace velmora::content;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Width = 600;
constexpr int Height = 420;
constexpr double PixelsPerPoint = 96.0 / 72;
constexpr int MostInterruptions = 60;
constexpr std::chrono::seconds TimeForInterruptions{2};
constexpr int Tries = 3; // the best counts: a busy machine makes anything late
// Of the pixels: edges of tiles, and another library's rounding.
constexpr double OfParts = 0.002;
constexpr double OfContexts = 0.02;

double milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Watches what is asked, and says to stop at one of the questions.
class Watch final : public Checkpoint {
public:
    explicit Watch(long stopAt = 0) : m_stopAt(stopAt) {}

    bool goOn(double fraction) override
    {
        portionEnds();
        isRising = isRising && fraction >= m_last && fraction <= 1;
        m_last = fraction;
        ++questions;
        afterStop += m_isStopped ? 1 : 0;
        m_isStopped = m_isStopped || questions == m_stopAt;
        m_portion = Clock::now();
        return !m_isStopped;
    }
    void portionEnds() { longest = std::max(longest, Clock::now() - m_portion); }

    long questions = 0;
    long afterStop = 0;
    bool isRising = true;
    Clock::duration longest{0};

private:
    long m_stopAt;
    bool m_isStopped = false;
    double m_last = 0;
    Clock::time_point m_portion = Clock::now();
};

/// The best of a few tries; one is enough when it keeps to the limit.
template <typename Try>
double bestOf(double best, double limit, const Try& tryAgain)
{
    for (int i = 1; i < Tries && best > limit; ++i)
        best = std::min(best, tryAgain());
    return best;
}

std::string percent(double fraction)
{
    return decimal(fraction * 100, 3) + " %";
}

} // namespace

/// A context with its functions, and a drawing that fills a target of ours in it.
struct ContentChecks::Room {
    explicit Room(const Drawing& of) : gl(of.findFunction), drawing(of)
    {
        drawing.targetWidth = Width;
        drawing.targetHeight = Height;
        drawing.frameX = drawing.frameY = 0;
        drawing.frameWidth = Width;
        drawing.frameHeight = Height;
        drawing.pixelsPerPoint = PixelsPerPoint;
        drawing.samples = 0;
    }

    OpenGL gl;
    Drawing drawing;
};

ContentChecks::ContentChecks(std::shared_ptr<Content> checked, const Limits& limits, Report& report)
    : m_checked(std::move(checked)), m_limits(limits), m_report(report)
{}

bool ContentChecks::draw(const Drawing& drawing, Checkpoint& checkpoint)
{
    if (drawing.detail == Detail::Full && !isDone()) {
        check(drawing);
        m_where.clear();
    }
    return m_checked->draw(drawing, checkpoint);
}

void ContentChecks::leaveContext(unsigned long context, bool isCurrent)
{
    m_checked->leaveContext(context, isCurrent);
}

void ContentChecks::check(const Drawing& drawing)
{
    const Room room(drawing);
    m_refusal.clear();
    if (!room.gl.isComplete()) {
        m_report.skip(m_where, "all", "its OpenGL lacks functions that the checks need");
        return;
    }
    if (!isDrawn(room))
        return;
    checkDrawing(room);
    checkCoarse(room);
    checkInterruptions(room);
    checkParts(room);
    checkView(room);
    checkValues();
    checkKept(room);
    checkElsewhere();
}

// The first drawing of all may make what is kept; the state is looked at from the second on.
bool ContentChecks::isDrawn(const Room& room)
{
    try {
        m_picture = picture(room);
        const bool shows = !isOneColour(m_picture);
        add("a picture", shows, shows ? "drawn" : "nothing is drawn");
        return shows;
    } catch (const std::exception& error) {
        m_refusal = error.what();
        m_report.skip(m_where, "all", std::string("it does not draw here: ") + error.what());
        return false;
    }
}

Pixels ContentChecks::picture(const Room& room)
{
    const Target target(room.gl, Width, Height);
    Watch watch;
    m_checked->draw(room.drawing, watch);
    return target.read();
}

void ContentChecks::checkDrawing(const Room& room)
{
    const Target target(room.gl, Width, Height);
    const State before = stateOf(room.gl);
    Watch watch;
    const bool isWhole = m_checked->draw(room.drawing, watch);
    room.gl.Finish();
    watch.portionEnds();
    m_questions = watch.questions;
    const std::string differs = difference(before, stateOf(room.gl));
    add("no state left", differs.empty(),
        differs.empty() ? "all values and objects as before" : differs + ". A StateGuard puts values back");
    add("whole when not stopped", isWhole, isWhole ? "true" : "draw() returned false");
    add("progress", watch.isRising, watch.isRising ? "rises from 0 to 1" : "it falls, or leaves 0 to 1");
    const double longest = bestOf(milliseconds(watch.longest), m_limits.longestPortion, [&] {
        Watch again;
        m_checked->draw(room.drawing, again);
        room.gl.Finish();
        again.portionEnds();
        return milliseconds(again.longest);
    });
    add("slices", longest <= m_limits.longestPortion,
        decimal(longest, 1) + " ms is the longest between two checkpoints (at most " +
            decimal(m_limits.longestPortion, 0) + "), " + std::to_string(m_questions) + " checkpoints");
}

void ContentChecks::checkCoarse(const Room& room)
{
    if (!m_checked->drawsCoarsely()) {
        m_report.skip(m_where, "coarse pictures", "it draws none");
        return;
    }
    const Target target(room.gl, Width, Height);
    Drawing drawing = room.drawing;
    drawing.detail = Detail::Coarse;
    const auto time = [&] {
        NoCheckpoint checkpoint;
        const Clock::time_point begun = Clock::now();
        m_checked->draw(drawing, checkpoint);
        room.gl.Finish();
        return milliseconds(Clock::now() - begun);
    };
    const double best = bestOf(time(), m_limits.coarse, time);
    add("coarse pictures", best <= m_limits.coarse,
        decimal(best, 1) + " ms (at most " + decimal(m_limits.coarse, 0) + ")");
}

void ContentChecks::checkInterruptions(const Room& room)
{
    const Target target(room.gl, Width, Height);
    const State state = stateOf(room.gl);
    const Clock::time_point begun = Clock::now();
    std::set<std::string> problems;
    long stops = 0;
    const long step = std::max(1L, m_questions / MostInterruptions);
    for (long stopAt = 1; stopAt <= m_questions && Clock::now() - begun < TimeForInterruptions; stopAt += step) {
        Watch watch(stopAt);
        const bool isWhole = m_checked->draw(room.drawing, watch);
        // A content may ask less often when the machine is faster.
        if (watch.questions < stopAt)
            break;
        ++stops;
        if (isWhole)
            problems.insert("draw() returns true although it was told to stop");
        if (watch.afterStop > 0)
            problems.insert("it goes on after it was told to stop");
        const std::string differs = difference(state, stateOf(room.gl));
        if (!differs.empty())
            problems.insert(differs);
    }
    if (differing(m_picture, picture(room)) > 0)
        problems.insert("the picture afterwards is another one");
    add("interruption", problems.empty() && stops > 0,
        stops == 0         ? "it never asks its checkpoint"
        : problems.empty() ? "at " + std::to_string(stops) + " of " + std::to_string(m_questions) + " checkpoints"
                           : *problems.begin());
}

void ContentChecks::checkParts(const Room& room)
{
    Pixels together{Width, Height, std::vector<unsigned char>(m_picture.bytes.size())};
    // No multiples of anything, and parts of the frame outside of the target on all sides.
    constexpr int PartWidth = 233;
    constexpr int PartHeight = 157;
    for (int y = 0; y < Height; y += PartHeight)
        for (int x = 0; x < Width; x += PartWidth) {
            const Target target(room.gl, PartWidth, PartHeight);
            Drawing drawing = room.drawing;
            drawing.targetWidth = PartWidth;
            drawing.targetHeight = PartHeight;
            drawing.frameX = -x;
            drawing.frameY = -y;
            Watch watch;
            m_checked->draw(drawing, watch);
            together.put(target.read(), x, y);
        }
    const double differs = differing(m_picture, together);
    add("parts and whole", differs <= OfParts,
        percent(differs) + " of the pixels differ (at most " + percent(OfParts) + ")" +
            (differs > OfParts ? ". Does it draw to the frame, and not to the target's size?" : ""));
}

void ContentChecks::checkView(const Room& room)
{
    const std::string first = m_checked->viewState();
    if (first.empty()) {
        m_report.skip(m_where, "views", "it has no view state");
        return;
    }
    // A view with digits behind the point in all its parts.
    m_checked->zoom(1.7, 0.37, 0.61);
    m_checked->translate(0.113, 0.057);
    m_checked->rotate(13.3, -7.7);
    const std::string second = m_checked->viewState();
    const Pixels there = picture(room);
    const bool isBack =
        m_checked->setViewState(first) && m_checked->viewState() == first && differing(m_picture, picture(room)) == 0;
    const bool isThere = m_checked->setViewState(second) && differing(there, picture(room)) == 0;
    const bool isRefused = !m_checked->setViewState("no view") && m_checked->viewState() == second;
    m_checked->setViewState(first);
    add("views", second != first && isBack && isThere && isRefused,
        second == first ? "moving changes no view state"
        : !(isBack && isThere)
            ? "a view that comes back by its text is another one; is all of it in the text, with 17 digits?"
        : !isRefused ? "it takes a text that is no view, or changes for it"
                     : "a view comes back whole");
}

void ContentChecks::checkValues()
{
    constexpr int Places = 7; // each way
    double longest = 0;
    int found = 0;
    bool isInFrame = true;
    for (int i = 0; i < Places * Places; ++i) {
        ShownValue value;
        const Clock::time_point begun = Clock::now();
        const bool hasValue = m_checked->valueAt((i % Places + 0.5) / Places, (i / Places + 0.5) / Places, value);
        longest = std::max(longest, milliseconds(Clock::now() - begun));
        found += hasValue ? 1 : 0;
        isInFrame = isInFrame && (!hasValue || (value.x >= 0 && value.x <= 1 && value.y >= 0 && value.y <= 1));
    }
    if (found == 0)
        return m_report.skip(m_where, "values", "it tells none");
    add("values", isInFrame && longest <= m_limits.value,
        !isInFrame ? "a value is shown outside of the frame"
                   : decimal(longest, 1) + " ms for a value (at most " + decimal(m_limits.value, 0) + ")");
}

// The drawing area's context is left, and entered again by the drawing that follows; an image's keeps nothing.
void ContentChecks::checkKept(const Room& room)
{
    const auto leave = [&] {
        if (room.drawing.context != 0)
            m_checked->leaveContext(room.drawing.context, true);
    };
    leave();
    const State before = stateOf(room.gl);
    picture(room);
    leave();
    const std::string differs = difference(before, stateOf(room.gl));
    add("nothing kept", differs.empty(),
        differs.empty()             ? "no object is left"
        : room.drawing.context != 0 ? "after leaveContext() " + differs
                                    : "in a context without a number " + differs);
}

void ContentChecks::checkElsewhere()
{
    if (m_first.bytes.empty()) {
        m_first = m_picture;
        return;
    }
    const double differs = differing(m_first, m_picture);
    add("screen and off", differs <= OfContexts,
        percent(differs) + " of the pixels differ from the drawing area's (at most " + percent(OfContexts) + ")" +
            (differs > OfContexts ? ". Does it look up each function in the context, and keep nothing without a number?"
                                  : ""));
}

} // namespace conformance
