#pragma once

#include "engine/plot/DrawingMeans.h"
#include "engine/plot/Geometry.h"
#include "engine/plot/Plot.h"
#include "engine/plot/Stroke.h"
#include "engine/text/TextLine.h"

#include <chrono>
#include <string>
#include <vector>

namespace velmora::engine {

enum class Align { Start, Middle, End }; ///< the anchor is the left/lower end, the middle, the other end

/// A line of text and where it stands. Sizes and positions in frame pixels.
struct TextItem {
    std::string text;
    Point anchor;
    double size = 10;
    Align along = Align::Start;
    Align across = Align::Start; ///< Start: the anchor is below the text
    bool upwards = false;        ///< turned by 90 degrees
    bool bold = false;
    Color color;
};

/// What the text covers.
Rect textRect(const TextItem& item);

/// Draws flat things in frame pixels (origin at the frame's lower left corner, y upwards) and asks
/// the checkpoint between them. Lives inside a GLStateGuard. Once told to stop it draws nothing more.
class Canvas {
public:
    Canvas(const Drawing& drawing, Checkpoint& checkpoint);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    const Drawing& drawing() const { return m_drawing; }
    const GLFunctions& gl() const { return *m_means.gl; }
    bool stopped() const { return m_stopped; }

    /// The work from here on takes the progress from the last fraction to this one, in steps.
    void beginPhase(double endFraction, std::size_t steps);
    /// A portion is drawn. When enough have come together, waits until they are done and asks the checkpoint;
    /// false when the drawing is to stop. How much is enough is measured.
    bool step();
    /// The same in the middle of a step: the progress stays.
    bool stepWithin();
    /// What a portion costs beside what is drawn through this class, in triangles; and what triangles over an
    /// area cost.
    void charge(double triangles) { m_cost += triangles; }
    void charge(double triangles, const Rect& area);
    /// Ends the drawing, also one that was told to stop: what was drawn reaches the target's memory.
    /// False when it was told to stop.
    bool finish();

    /// Sets up flat drawing in the frame; other drawing may have changed matrices and state.
    void useFlat();
    /// Restricts drawing to a part of the frame, without a part to the frame. A rectangle that was
    /// set before the drawing began stays in force.
    void clip(const Rect& part);
    void clipToFrame();

    void fill(const Rect& rect, Color color);
    /// Level and upright lines are put on whole pixels, so that they are crisp.
    void line(Point from, Point to, double width, Color color);
    void outline(const Rect& rect, double width, Color color);
    void stroke(const Stroke& stroke);
    void text(const TextItem& item);

    /// Whether any of the rectangle is on the target.
    bool shows(const Rect& rect) const;
    /// The part of the rectangle that is on the target, out to whole pixels.
    Rect visiblePart(const Rect& rect) const;

private:
    using Clock = std::chrono::steady_clock;

    void setScissor(Rect part) const;
    void waitForLastBatch();
    void measureBatch();

    const Drawing& m_drawing;
    DrawingMeans m_means;
    Checkpoint& m_checkpoint;
    Rect m_bounds; ///< of the target and an earlier scissor, in target pixels
    bool m_stopped = false;
    double m_cost = 0;     ///< of what was drawn since the checkpoint was asked, in triangles
    double m_batch = 1500; ///< cost after which it is asked
    GLsync m_lastBatch = nullptr;
    Clock::time_point m_batchStart = Clock::now();
    double m_fraction = 0;
    double m_phaseEnd = 0;
    double m_stepSize = 0;
};

} // namespace velmora::engine
