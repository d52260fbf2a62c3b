#pragma once

#include "engine/data/DataSet.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

class Checkpoint;
class KeptGeometry;
struct GLFunctions;

/// How much of a plot a drawing shows.
enum class Detail {
    Full,
    Coarse ///< all that there is, as exactly as a fraction of a slice of time allows
};

/// Where and how large a plot is drawn. The viewport is the whole target; the frame may be larger
/// than the target and lie partly outside it, as it does when a picture is drawn in tiles.
struct Drawing {
    const GLFunctions* gl = nullptr; ///< of the current context
    int targetWidth = 0;             ///< pixels
    int targetHeight = 0;
    double frameX = 0; ///< target pixels from the left
    double frameY = 0; ///< target pixels from the bottom
    double frameWidth = 0;
    double frameHeight = 0;
    double pixelsPerPoint = 1; ///< 1 point is 1/72 inch of paper: text and line widths
    double leastText = 0;      ///< pixels that no text is lower than
    Detail detail = Detail::Full;
    std::size_t coarseTriangles = 0; ///< of a surface in a coarse drawing, at most
    KeptGeometry* kept = nullptr;    ///< of the current context; null: nothing is kept
    bool asksOften = false;          ///< after each small portion, however fast it was drawn
};

/// Which kinds of object a pick takes.
struct PickFilter {
    bool zones = true;      ///< lines and surfaces
    bool geometries = true; ///< axes, colour bar, legend frame
    bool text = true;
    bool considerStyle = true; ///< leave out what is not shown
};

/// A value that a picture shows, and where: fractions of the frame.
struct ShownValue {
    double x = 0;
    double y = 0;
    std::string text; ///< for a person
};

/// What a frame shows, and from where. Fractions are of the frame, from its lower left corner.
class Plot {
public:
    virtual ~Plot() = default;

    /// Draws over the frame's white ground. False when `checkpoint` said to stop.
    virtual bool draw(const Drawing& drawing, Checkpoint& checkpoint) = 0;

    virtual bool canRotate() const = 0;
    virtual void rotate(double aboutVertical, double tilt) = 0; ///< degrees
    virtual void translate(double dx, double dy) = 0;           ///< fractions of the frame
    virtual void zoom(double factor, double x, double y) = 0;   ///< about a point in fractions
    /// Shows what lies in a rectangle (fractions, x1 < x2, y1 < y2) as large as the frame.
    virtual void zoomTo(double x1, double y1, double x2, double y2) = 0;
    /// Zooms the axis that is at a point alone; false where there is none that can be.
    virtual bool zoomAxis(double factor, double x, double y) = 0;
    /// Shows all data; a surface from the direction that it was first seen from.
    virtual void fit() = 0;
    /// Shows all data; a surface from the direction that it is seen from now.
    virtual void showAll() = 0;

    /// The view as numbers that setViewNumbers() of a plot of the same kind takes.
    virtual std::vector<double> viewNumbers() const = 0;
    /// False, and nothing has changed, for numbers that are no view.
    virtual bool setViewNumbers(const std::vector<double>& numbers) = 0;

    /// Adds what lies in the rectangle (fractions, x1 <= x2, y1 <= y2) to the selection; how many
    /// objects that were.
    virtual int pick(double x1, double y1, double x2, double y2, const PickFilter& filter) = 0;
    virtual void deselectAll() = 0;
    /// Selects the object after (or before) what is selected and nothing else, of those that show; the first (or the
    /// last) when nothing is selected. False, and nothing is selected any more, where no other one follows.
    virtual bool selectNeighbour(bool after) = 0;
    virtual int selectedCount() const = 0;
    /// The names of what is selected, on one line; of many the first few and a number.
    virtual std::string selectionDescription() const = 0;

    /// The value that the picture shows at a place, or near it; false without one.
    virtual bool valueAt(double x, double y, ShownValue& found) const = 0;

    /// Shows what a plot of the same kind shows, as far as its own data have it: from where, or which range of which
    /// columns. An axis that showed all its values shows all. Asks `checkpoint` to go on; throws ReadInterrupted when
    /// that says no.
    virtual void takeViewOf(const Plot& other, Checkpoint& checkpoint) = 0;

    /// One line for a person: what is shown.
    virtual std::string description() const = 0;
};

/// A plot for the data: XY lines for a table, a surface for a grid. Large data take their time: it asks
/// `checkpoint` to go on, and throws ReadInterrupted when that says no.
std::unique_ptr<Plot> makePlot(const DataSet& data, Checkpoint& checkpoint);

} // namespace velmora::engine
