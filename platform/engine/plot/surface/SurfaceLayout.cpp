#include "engine/plot/surface/SurfaceLayout.h"

#include "engine/plot/Palette.h"
#include "engine/plot/surface/SurfaceArea.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

// Points.
constexpr double BarWidth = 14;
constexpr double LabelDistance = 2;
constexpr double ShortestScale = 40;   ///< an axis of the floor that is shorter in the picture has none
constexpr double ShortestUpright = 14; ///< the upright one, whose labels stand above each other
constexpr int MostTicks = 12;
constexpr int MostLines = 4; ///< of labels beside an axis where there is little room
constexpr double LineHeight = 1.3;

constexpr double BarShare = 0.62; ///< of the frame's height

/// Text beside a line: on which side of the anchor it stands the direction away from the box says.
Align alignFor(double direction)
{
    return direction > 0.4 ? Align::Start : direction < -0.4 ? Align::End : Align::Middle;
}

Point turned(Point vector, double angle)
{
    return {vector.x * std::cos(angle) - vector.y * std::sin(angle),
            vector.x * std::sin(angle) + vector.y * std::cos(angle)};
}

Point unit(Point vector)
{
    const double length = std::hypot(vector.x, vector.y);
    return length < 1e-9 ? Point{0, -1} : Point{vector.x / length, vector.y / length};
}

/// An edge of the box with its scale.
struct AxisEdge {
    int object;
    int titleObject;
    const char* title;
    glm::dvec3 from;
    glm::dvec3 to;
    AxisRange range;
};

/// To where the labels of an axis stand, and how far away from it the ground is free.
struct Outwards {
    Point direction;
    double inside = 0;
};

/// The title and the colour bar come first: they have one place only.
class Builder {
public:
    Builder(const Grid& grid, const SurfaceShape& shape, const SurfaceView& view, const FrameSize& frame)
        : m_grid(grid), m_shape(shape), m_frame(frame), m_layout{cameraFor(view, shape, frame), {}, {}, {}, {}, {}, {}},
          m_isParallel(view.isParallel)
    {}

    SurfaceLayout build()
    {
        findNearCorner();
        addFloorAndWalls();
        addTitle();
        addBar();
        takePlaces();
        addAxes();
        return std::move(m_layout);
    }

private:
    double points(double length) const { return m_frame.points(length); }
    double textSize(double height) const { return m_frame.textSize(height); }
    Point at(const glm::dvec3& point) const
    {
        const StrokePoint place = m_layout.camera.project(point);
        return {place.x, place.y};
    }
    void findNearCorner();
    void addFloorAndWalls();
    void addAxes();
    void addAxis(const AxisEdge& axisEdge);
    bool isFree(const Rect& rect) const;
    double insideBox(const AxisEdge& axisEdge, Point away) const;
    Point pointOn(const AxisEdge& axisEdge, double t) const;
    double shortestScaleOf(const AxisEdge& axisEdge) const;
    SurfaceAxis withTicks(const AxisEdge& axisEdge, const Outwards& outwards, int most, int lines) const;
    TextItem labelAt(const std::string& text, Point foot, Point away, double distance) const;
    static double nearestCorner(const Rect& rect, Point from, Point away);
    SurfaceAxis withBestTicks(const AxisEdge& axisEdge, const Outwards& outwards) const;
    void addAxisTitle(const AxisEdge& axisEdge, Point away, double reach);
    void addTitle();
    void addBar();
    void takePlaces();
    void addGridLine(const glm::dvec3& a, const glm::dvec3& b) { m_layout.grid.push_back({at(a), at(b)}); }
    void addEdge(const glm::dvec3& a, const glm::dvec3& b) { m_layout.edges.push_back({at(a), at(b)}); }

    const Grid& m_grid;
    const SurfaceShape& m_shape;
    const FrameSize& m_frame;
    SurfaceLayout m_layout;
    std::vector<Rect> m_taken; ///< by texts and the bar
    bool m_isParallel;
    double m_nearX = 0; ///< of the floor's corner nearest to the viewer
    double m_nearY = 0;
};

void Builder::findNearCorner()
{
    // The lowest in the picture, which from above says more than the distance: that is the same for all.
    double lowest = 1e30;
    for (double x : {-m_shape.halfX(), m_shape.halfX()})
        for (double y : {-m_shape.halfY(), m_shape.halfY()}) {
            const double height = at({x, y, -m_shape.halfZ()}).y;
            if (height < lowest) {
                lowest = height;
                m_nearX = x;
                m_nearY = y;
            }
        }
}

void Builder::addFloorAndWalls()
{
    const double hx = m_shape.halfX();
    const double hy = m_shape.halfY();
    const double hz = m_shape.halfZ();
    for (const Tick& tick : numberTicks(m_shape.mapX(), 6)) {
        const double x = ((tick.value - m_shape.mapX().from) / m_shape.mapX().span() * 2 - 1) * hx;
        addGridLine({x, -hy, -hz}, {x, hy, -hz});
        addGridLine({x, -m_nearY, -hz}, {x, -m_nearY, hz});
    }
    for (const Tick& tick : numberTicks(m_shape.mapY(), 6)) {
        const double y = ((tick.value - m_shape.mapY().from) / m_shape.mapY().span() * 2 - 1) * hy;
        addGridLine({-hx, y, -hz}, {hx, y, -hz});
        addGridLine({-m_nearX, y, -hz}, {-m_nearX, y, hz});
    }
    for (const Tick& tick : numberTicks(m_shape.heights(), 5)) {
        const double z = m_shape.z(tick.value);
        addGridLine({-hx, -m_nearY, z}, {hx, -m_nearY, z});
        addGridLine({-m_nearX, -hy, z}, {-m_nearX, hy, z});
    }
    for (double z : {-hz, hz}) {
        addEdge({-hx, -m_nearY, z}, {hx, -m_nearY, z});
        addEdge({-m_nearX, -hy, z}, {-m_nearX, hy, z});
    }
    addEdge({-m_nearX, -m_nearY, -hz}, {-m_nearX, -m_nearY, hz});
    addEdge({m_nearX, -m_nearY, -hz}, {m_nearX, -m_nearY, hz});
    addEdge({-m_nearX, m_nearY, -hz}, {-m_nearX, m_nearY, hz});
}

// The floor's two edges nearest to the viewer carry x and y, the upright edge farthest to the left
// carries z: none of them is ever behind the surface.
void Builder::addAxes()
{
    const double hx = m_shape.halfX();
    const double hy = m_shape.halfY();
    const double hz = m_shape.halfZ();
    addAxis(
        {surfaceobject::XAxis, surfaceobject::XTitle, "x", {-hx, m_nearY, -hz}, {hx, m_nearY, -hz}, m_shape.mapX()});
    addAxis(
        {surfaceobject::YAxis, surfaceobject::YTitle, "y", {m_nearX, -hy, -hz}, {m_nearX, hy, -hz}, m_shape.mapY()});
    const bool isFirstLeft = at({m_nearX, -m_nearY, 0}).x < at({-m_nearX, m_nearY, 0}).x;
    const double x = isFirstLeft ? m_nearX : -m_nearX;
    const double y = isFirstLeft ? -m_nearY : m_nearY;
    addAxis({surfaceobject::ZAxis, surfaceobject::ZTitle, "z", {x, y, -hz}, {x, y, hz}, m_shape.heights()});
}

bool Builder::isFree(const Rect& rect) const
{
    const Rect frame = m_frame.rect();
    const Rect room = rect.grown(points(LabelDistance));
    return frame.contains({rect.x1, rect.y1}) && frame.contains({rect.x2, rect.y2}) &&
           std::none_of(m_taken.begin(), m_taken.end(), [&room](const Rect& taken) { return room.meets(taken); });
}

/// How far an edge of the floor lies within what the box covers, where that is seen from above: its labels
/// stand outside all of it.
double Builder::insideBox(const AxisEdge& axisEdge, Point away) const
{
    double inside = 0;
    for (glm::dvec3 end : {axisEdge.from, axisEdge.to}) {
        const Point foot = at(end);
        end.z = m_shape.halfZ();
        const Point top = at(end);
        inside = std::max(inside, (top.x - foot.x) * away.x + (top.y - foot.y) * away.y);
    }
    return axisEdge.object == surfaceobject::ZAxis ? 0 : inside;
}

Point Builder::pointOn(const AxisEdge& axisEdge, double t) const
{
    return at(axisEdge.from + (axisEdge.to - axisEdge.from) * t);
}

double Builder::shortestScaleOf(const AxisEdge& axisEdge) const
{
    return points(axisEdge.object == surfaceobject::ZAxis ? ShortestUpright : ShortestScale);
}

/// A label beside an axis, all of it at least `distance` away.
TextItem Builder::labelAt(const std::string& text, Point foot, Point away, double distance) const
{
    TextItem label;
    label.text = text;
    label.size = textSize(plotsize::Label);
    label.color = palette::Label;
    label.along = alignFor(away.x);
    label.across = alignFor(away.y);
    label.anchor = {foot.x + away.x * distance, foot.y + away.y * distance};
    const double back = std::max(0.0, distance - nearestCorner(textRect(label), foot, away));
    label.anchor = {label.anchor.x + away.x * back, label.anchor.y + away.y * back};
    return label;
}

/// The ticks of which there are `most` at most, with those labels that stand free, each in the first of so many
/// lines beside the axis that has room for it.
SurfaceAxis Builder::withTicks(const AxisEdge& axisEdge, const Outwards& outwards, int most, int lines) const
{
    SurfaceAxis axis{axisEdge.object, {at(axisEdge.from), at(axisEdge.to)}, {}, {}};
    const Point away = outwards.direction;
    const auto isApart = [&](const Rect& rect) {
        const Rect room = rect.grown(points(LabelDistance));
        return std::none_of(axis.labels.begin(), axis.labels.end(),
                            [&room](const TextItem& label) { return room.meets(textRect(label)); });
    };
    for (const Tick& tick : numberTicks(axisEdge.range, most)) {
        const Point foot = pointOn(axisEdge, (tick.value - axisEdge.range.from) / axisEdge.range.span());
        double end = outwards.inside + points(plotsize::Tick);
        for (int line = 0; line < lines; ++line) {
            const double further = line * textSize(plotsize::Label) * LineHeight;
            const TextItem label = labelAt(tick.label, foot, away, end + further + points(plotsize::Gap / 2));
            if (!isApart(textRect(label)) || !isFree(textRect(label)))
                continue;
            axis.labels.push_back(label);
            end += further;
            break;
        }
        axis.ticks.push_back({foot, {foot.x + away.x * end, foot.y + away.y * end}});
    }
    return axis;
}

/// Of a rectangle's corners the one that lies least far away from a point.
double Builder::nearestCorner(const Rect& rect, Point from, Point away)
{
    const double x = away.x > 0 ? rect.x1 : rect.x2;
    const double y = away.y > 0 ? rect.y1 : rect.y2;
    return (x - from.x) * away.x + (y - from.y) * away.y;
}

/// As many ticks as have labels that stand free, all of them if possible; at least two, for one tells no scale.
SurfaceAxis Builder::withBestTicks(const AxisEdge& axisEdge, const Outwards& outwards) const
{
    SurfaceAxis best{axisEdge.object, {at(axisEdge.from), at(axisEdge.to)}, {}, {}};
    const Point along{best.line.to.x - best.line.from.x, best.line.to.y - best.line.from.y};
    const double length = std::hypot(along.x, along.y);
    if (length < shortestScaleOf(axisEdge))
        return best;
    const int usual = std::clamp(static_cast<int>(length / (textSize(plotsize::Label) * 1.9)), 2, 6);
    for (int most = usual; most >= 1; --most) {
        SurfaceAxis axis = withTicks(axisEdge, outwards, most, 1);
        if (axis.labels.size() >= 2 && axis.labels.size() == axis.ticks.size())
            return axis;
        if (axis.labels.size() > best.labels.size())
            best = std::move(axis);
    }
    for (int most = 1; most <= MostTicks && best.labels.size() < 2; ++most) {
        SurfaceAxis axis = withTicks(axisEdge, outwards, most, MostLines);
        const bool tellsScale = best.ticks.size() < 2 && axis.ticks.size() >= 2;
        if (axis.labels.size() > best.labels.size() || (tellsScale && axis.labels.size() == best.labels.size()))
            best = std::move(axis);
    }
    return best;
}

void Builder::addAxis(const AxisEdge& axisEdge)
{
    const Point a = at(axisEdge.from);
    const Point b = at(axisEdge.to);
    const Point middle{(a.x + b.x) / 2, (a.y + b.y) / 2};
    const Point center = at({0, 0, axisEdge.object == surfaceobject::ZAxis ? 0 : -m_shape.halfZ()});
    Point away = unit({-(b.y - a.y), b.x - a.x});
    if (away.x * (middle.x - center.x) + away.y * (middle.y - center.y) < 0)
        away = {-away.x, -away.y};
    // From above the upright axis is a point or nearly so: what belongs to it stands beyond the corner.
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    const bool isShort = length < points(ShortestScale);
    if (isShort && m_isParallel)
        return; // it is seen from its end
    if (isShort)
        away = unit({middle.x - center.x, middle.y - center.y});
    const Outwards outwards{away, insideBox(axisEdge, away)};
    SurfaceAxis axis = withBestTicks(axisEdge, outwards);
    double reach = outwards.inside + points(plotsize::Tick) + (isShort ? length / 2 : 0);
    for (const TextItem& label : axis.labels) {
        const Rect rect = textRect(label);
        m_taken.push_back(rect);
        const Point back{-away.x, -away.y};
        reach = std::max(reach, -nearestCorner(rect, middle, back));
    }
    addAxisTitle(axisEdge, away, reach + points(plotsize::Gap));
    m_layout.axes.push_back(std::move(axis));
}

/// In the middle of the axis, or beside it where something else stands.
void Builder::addAxisTitle(const AxisEdge& axisEdge, Point away, double reach)
{
    TextItem title;
    title.text = axisEdge.title;
    title.size = textSize(plotsize::AxisTitle);
    title.bold = true;
    title.color = palette::Ink;
    const auto place = [&](double t, double distance, Point direction) {
        const Point foot = pointOn(axisEdge, t);
        title.anchor = {foot.x + direction.x * distance, foot.y + direction.y * distance};
        title.along = alignFor(direction.x);
        title.across = alignFor(direction.y);
        return isFree(textRect(title));
    };
    const auto placeSomewhere = [&] {
        for (const double turn : {0.0, 0.7, -0.7, 1.4, -1.4})
            for (const double more : {0.0, 1.0, 2.0, 3.0})
                for (const double t : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.1, 0.9, 0.0, 1.0, -0.1, 1.1})
                    if (place(t, reach + more * title.size, turned(away, turn)))
                        return true;
        return false;
    };
    if (!placeSomewhere())
        place(0.5, reach, away);
    m_taken.push_back(textRect(title));
    m_layout.texts.push_back({title, axisEdge.titleObject});
}

void Builder::addTitle()
{
    m_layout.texts.push_back(
        {plotTitle(m_grid.name, m_frame, m_frame.height - points(plotsize::Edge)), surfaceobject::Title});
}

void Builder::addBar()
{
    const double height = m_frame.height * BarShare;
    const double left = std::round(m_frame.width - barRoom(m_frame) + points(plotsize::Gap));
    const double bottom = std::round((m_frame.height - height) / 2 - textSize(plotsize::Title));
    m_layout.bar = {left, bottom, left + std::round(points(BarWidth)), bottom + std::round(height)};
    const Rect& bar = m_layout.bar;
    const std::vector<double>& edges = m_shape.bandEdges();
    const double step = edges[1] - edges[0];
    const double apart = bar.height() / static_cast<double>(edges.size() - 1);
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(textSize(plotsize::Label) * 1.5 / apart)));
    std::vector<std::size_t> labelled;
    for (std::size_t i = 0; i < edges.size(); i += every)
        labelled.push_back(i);
    if (m_shape.hasHeightsAbove())
        labelled.back() = edges.size() - 1;
    for (const std::size_t i : labelled) {
        const double y = bar.y1 + m_shape.bandPlace(edges[i]) * bar.height();
        const char* const beyond = i == 0 && m_shape.hasHeightsBelow()                  ? "≤ "
                                   : i + 1 == edges.size() && m_shape.hasHeightsAbove() ? "≥ "
                                                                                        : "";
        m_layout.barLabels.push_back({beyond + formatNumber(edges[i], step),
                                      {bar.x2 + points(plotsize::Gap), y},
                                      textSize(plotsize::Label),
                                      Align::Start,
                                      Align::Middle,
                                      false,
                                      false,
                                      palette::Label});
    }
    m_layout.texts.push_back({{"z",
                               {bar.x1 + bar.width() / 2, bar.y2 + points(plotsize::Gap)},
                               textSize(plotsize::AxisTitle),
                               Align::Middle,
                               Align::Start,
                               false,
                               true,
                               palette::Ink},
                              surfaceobject::BarTitle});
}

void Builder::takePlaces()
{
    m_taken.push_back(m_layout.bar);
    for (const TextItem& label : m_layout.barLabels)
        m_taken.push_back(textRect(label));
    for (const PlotText& text : m_layout.texts)
        m_taken.push_back(textRect(text.item));
}

} // namespace

SurfaceLayout layOut(const Grid& grid, const SurfaceShape& shape, const SurfaceView& view, const FrameSize& frame)
{
    return Builder(grid, shape, view, frame).build();
}

} // namespace velmora::engine
