#include "engine/plot/SurfaceLayout.h"

#include "engine/plot/Palette.h"

#include <cmath>

namespace velmora::engine {

namespace {

// Points.
constexpr double titleSize = 13;
constexpr double axisTitleSize = 10;
constexpr double labelSize = 9;
constexpr double edge = 14;
constexpr double gap = 5;
constexpr double tickLength = 4;
constexpr double barWidth = 14;
constexpr double barRoom = 76;
constexpr double labelRoom = 40;

constexpr double barShare = 0.62; ///< of the frame's height

Rect surfaceArea(const FrameSize& frame)
{
    Rect area = frame.rect().grown(-frame.points(edge + labelRoom));
    area.y2 += frame.points(labelRoom - titleSize - gap);
    area.x2 -= frame.points(barRoom - labelRoom);
    return {area.x1, area.y1, std::max(area.x2, area.x1 + 1), std::max(area.y2, area.y1 + 1)};
}

/// Text beside a line: on which side of the anchor it stands the direction away from the box says.
Align alignFor(double direction)
{
    return direction > 0.4 ? Align::Start : direction < -0.4 ? Align::End : Align::Middle;
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
    Vector3 from;
    Vector3 to;
    AxisRange range;
};

class Builder {
public:
    Builder(const Grid& grid, const SurfaceShape& shape, const SurfaceView& view, const FrameSize& frame)
        : m_grid(grid), m_shape(shape),
          m_frame(frame), m_layout{Camera(view, shape, frame.rect(), surfaceArea(frame)), {}, {}, {}, {}, {}, {}}
    {}

    SurfaceLayout build()
    {
        findNearCorner();
        addFloorAndWalls();
        addAxes();
        addTitle();
        addBar();
        return std::move(m_layout);
    }

private:
    double points(double length) const { return m_frame.points(length); }
    Point at(const Vector3& point) const
    {
        const StrokePoint place = m_layout.camera.project(point);
        return {place.x, place.y};
    }
    void findNearCorner();
    void addFloorAndWalls();
    void addAxes();
    void addAxis(const AxisEdge& axisEdge);
    bool isFree(const Rect& rect) const;
    double addTicks(const AxisEdge& axisEdge, Point away, SurfaceAxis& axis) const;
    std::vector<Tick> ticksFor(const AxisEdge& axisEdge, double pixels) const;
    void addTitle();
    void addBar();
    void addGridLine(const Vector3& a, const Vector3& b) { m_layout.grid.push_back({at(a), at(b)}); }
    void addEdge(const Vector3& a, const Vector3& b) { m_layout.edges.push_back({at(a), at(b)}); }

    const Grid& m_grid;
    const SurfaceShape& m_shape;
    const FrameSize& m_frame;
    SurfaceLayout m_layout;
    double m_nearX = 0; ///< of the floor's corner nearest to the viewer
    double m_nearY = 0;
};

void Builder::findNearCorner()
{
    double nearest = -1e30;
    for (double x : {-m_shape.halfX(), m_shape.halfX()})
        for (double y : {-m_shape.halfY(), m_shape.halfY()}) {
            const double nearness = m_layout.camera.nearness({x, y, 0});
            if (nearness > nearest) {
                nearest = nearness;
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
        {surfaceobject::xAxis, surfaceobject::xTitle, "x", {-hx, m_nearY, -hz}, {hx, m_nearY, -hz}, m_shape.mapX()});
    addAxis(
        {surfaceobject::yAxis, surfaceobject::yTitle, "y", {m_nearX, -hy, -hz}, {m_nearX, hy, -hz}, m_shape.mapY()});
    const bool isFirstLeft = at({m_nearX, -m_nearY, 0}).x < at({-m_nearX, m_nearY, 0}).x;
    const double x = isFirstLeft ? m_nearX : -m_nearX;
    const double y = isFirstLeft ? -m_nearY : m_nearY;
    addAxis({surfaceobject::zAxis, surfaceobject::zTitle, "z", {x, y, -hz}, {x, y, hz}, m_shape.heights()});
}

std::vector<Tick> Builder::ticksFor(const AxisEdge& axisEdge, double pixels) const
{
    std::vector<Tick> ticks;
    for (int most = std::clamp(static_cast<int>(pixels / points(labelSize * 1.9)), 0, 6); most >= 1; --most) {
        ticks = numberTicks(axisEdge.range, most);
        double widest = 0;
        for (const Tick& tick : ticks)
            widest = std::max(widest, measureText(FontFace::regular(), tick.label, points(labelSize)).width);
        // Labels beside an upright axis stand above one another, at the others side by side.
        const bool isUpright = axisEdge.object == surfaceobject::zAxis;
        if (isUpright || (widest + points(gap)) * static_cast<double>(ticks.size()) < pixels * 1.15)
            return ticks;
    }
    return {};
}

// Where two axes meet at a narrow angle their last labels would lie upon each other.
bool Builder::isFree(const Rect& rect) const
{
    for (const SurfaceAxis& axis : m_layout.axes)
        for (const TextItem& label : axis.labels)
            if (rect.meets(textRect(label).grown(points(2))))
                return false;
    return true;
}

/// Adds ticks and labels; how far the labels reach away from the axis.
double Builder::addTicks(const AxisEdge& axisEdge, Point away, SurfaceAxis& axis) const
{
    const double size = points(labelSize);
    const Point a = axis.line.from;
    const Point b = axis.line.to;
    double reach = 0;
    for (const Tick& tick : ticksFor(axisEdge, std::hypot(b.x - a.x, b.y - a.y))) {
        const double t = (tick.value - axisEdge.range.from) / axisEdge.range.span();
        const Vector3& f = axisEdge.from;
        const Vector3& e = axisEdge.to;
        const Point foot = at({f.x + (e.x - f.x) * t, f.y + (e.y - f.y) * t, f.z + (e.z - f.z) * t});
        const double length = points(tickLength);
        axis.ticks.push_back({foot, {foot.x + away.x * length, foot.y + away.y * length}});
        const double far = length + points(gap / 2);
        const TextItem label{tick.label,
                             {foot.x + away.x * far, foot.y + away.y * far},
                             size,
                             alignFor(away.x),
                             alignFor(away.y),
                             false,
                             false,
                             palette::label};
        const Rect rect = textRect(label);
        if (isFree(rect))
            axis.labels.push_back(label);
        reach = std::max(reach, far + std::fabs(away.x) * rect.width() + std::fabs(away.y) * rect.height());
    }
    return reach;
}

void Builder::addAxis(const AxisEdge& axisEdge)
{
    SurfaceAxis axis{axisEdge.object, {at(axisEdge.from), at(axisEdge.to)}, {}, {}};
    const Point a = axis.line.from;
    const Point b = axis.line.to;
    const Point middle{(a.x + b.x) / 2, (a.y + b.y) / 2};
    const Point center = at({0, 0, axisEdge.object == surfaceobject::zAxis ? 0 : -m_shape.halfZ()});
    Point away = unit({-(b.y - a.y), b.x - a.x});
    if (away.x * (middle.x - center.x) + away.y * (middle.y - center.y) < 0)
        away = {-away.x, -away.y};
    const double reach = addTicks(axisEdge, away, axis) + points(gap);
    SurfaceText title{{axisEdge.title,
                       {middle.x + away.x * reach, middle.y + away.y * reach},
                       points(axisTitleSize),
                       alignFor(away.x),
                       alignFor(away.y),
                       false,
                       true,
                       palette::ink},
                      axisEdge.titleObject};
    m_layout.texts.push_back(title);
    m_layout.axes.push_back(std::move(axis));
}

void Builder::addTitle()
{
    m_layout.texts.push_back({{m_grid.name,
                               {m_frame.width / 2, m_frame.height - points(edge)},
                               points(titleSize),
                               Align::Middle,
                               Align::End,
                               false,
                               true,
                               palette::ink},
                              surfaceobject::title});
}

void Builder::addBar()
{
    const double height = m_frame.height * barShare;
    const double left = std::round(m_frame.width - points(barRoom) + points(gap));
    const double bottom = std::round((m_frame.height - height) / 2 - points(titleSize));
    m_layout.bar = {left, bottom, left + std::round(points(barWidth)), bottom + std::round(height)};
    const Rect& bar = m_layout.bar;
    const std::vector<double>& edges = m_shape.bandEdges();
    const double step = edges[1] - edges[0];
    const double apart = bar.height() / static_cast<double>(edges.size() - 1);
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(points(labelSize) * 1.5 / apart)));
    for (std::size_t i = 0; i < edges.size(); i += every) {
        const double y = bar.y1 + m_shape.bandPlace(edges[i]) * bar.height();
        m_layout.barLabels.push_back({formatNumber(edges[i], step),
                                      {bar.x2 + points(gap), y},
                                      points(labelSize),
                                      Align::Start,
                                      Align::Middle,
                                      false,
                                      false,
                                      palette::label});
    }
    m_layout.texts.push_back({{"z",
                               {bar.x1 + bar.width() / 2, bar.y2 + points(gap)},
                               points(axisTitleSize),
                               Align::Middle,
                               Align::Start,
                               false,
                               true,
                               palette::ink},
                              surfaceobject::barTitle});
}

} // namespace

Point surfaceCenter(const FrameSize& frame)
{
    const Rect area = surfaceArea(frame);
    return {(area.x1 + area.x2) / 2 / frame.width, (area.y1 + area.y2) / 2 / frame.height};
}

SurfaceLayout layOut(const Grid& grid, const SurfaceShape& shape, const SurfaceView& view, const FrameSize& frame)
{
    return Builder(grid, shape, view, frame).build();
}

} // namespace velmora::engine
