#include "engine/plot/surface/CellAtPlace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace velmora::engine {

namespace {

using Corners = std::array<StrokePoint, 4>;

double side(const StrokePoint& a, const StrokePoint& b, Point p)
{
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

/// The depth of a triangle at a place; false where it is not.
bool depthAt(const StrokePoint& a, const StrokePoint& b, const StrokePoint& c, Point place, double& depth)
{
    const double whole = side(a, b, {c.x, c.y});
    const double atA = side(b, c, place) / whole;
    const double atB = side(c, a, place) / whole;
    const double atC = 1 - atA - atB;
    depth = atA * a.z + atB * b.z + atC * c.z;
    return atA >= 0 && atB >= 0 && atC >= 0; // not so for a triangle that is seen from its edge
}

class Search {
public:
    Search(const SurfaceLevels& levels, const SurfaceShape& shape, const Camera& camera, Point place)
        : m_levels(levels), m_shape(shape), m_camera(camera), m_place(place)
    {
        const auto nearness = [&](int part) {
            return camera.nearness(
                {part % 2 ? shape.halfX() : -shape.halfX(), part / 2 ? -shape.halfY() : shape.halfY(), 0});
        };
        std::sort(m_order.begin(), m_order.end(), [&](int a, int b) { return nearness(a) > nearness(b); });
    }

    bool find()
    {
        lookAt(m_levels.count() - 1, 0, 0);
        return m_depth < std::numeric_limits<double>::infinity();
    }

    const CellAtPlace& found() const { return m_found; }

private:
    // The nearest quarter first: what it hides need not be looked at.
    void lookAt(int level, int column, int row)
    {
        if (!mayShow(level, column, row))
            return;
        if (level == 0) {
            lookAtMesh(column, row);
            return;
        }
        for (const int part : m_order)
            lookAt(level - 1, 2 * column + part % 2, 2 * row + part / 2);
    }

    // A node with the row and the column of cells behind it, for the meshes between them, and half a cell around.
    bool mayShow(int level, int column, int row) const
    {
        if (column >= m_levels.columns(level) || row >= m_levels.rows(level))
            return false;
        HeightRange heights;
        for (int i = 0; i < 4; ++i)
            heights.take(m_levels.range(level, column + i % 2, row + i / 2));
        if (heights.isGap())
            return false;
        Rect covered{1e30, 1e30, -1e30, -1e30};
        double depth = std::numeric_limits<double>::infinity();
        for (int i = 0; i < 8; ++i) {
            const double x = m_shape.x(((column + (i & 1)) << level) + (i & 1 ? 0.5 : -0.5));
            const double y = m_shape.y(((row + (i & 2) / 2) << level) + (i & 2 ? 0.5 : -0.5));
            const StrokePoint corner = m_camera.project({x, y, m_shape.z(i & 4 ? heights.high : heights.low)});
            covered.take({corner.x, corner.y});
            depth = std::min(depth, corner.z);
        }
        return covered.contains(m_place) && depth < m_depth;
    }

    double height(int column, int row) const
    {
        const Grid& grid = m_levels.grid();
        const bool isInside = column < grid.columns && row < grid.rows;
        return isInside ? grid.at(column, row) : std::numeric_limits<double>::quiet_NaN();
    }

    StrokePoint placed(double column, double row, double height) const
    {
        return m_camera.project({m_shape.x(column), m_shape.y(row), m_shape.z(height)});
    }

    /// The mesh between a cell and its neighbours. Where there is none, at a border or a gap, the cell itself.
    void lookAtMesh(int column, int row)
    {
        const int columns[] = {column, column + 1, column + 1, column};
        const int rows[] = {row, row, row + 1, row + 1};
        std::size_t count = 0;
        Corners corners;
        std::array<CellAtPlace, 4> cells;
        for (int i = 0; i < 4; ++i) {
            const double here = height(columns[i], rows[i]);
            if (!std::isfinite(here))
                continue;
            corners[count] = placed(columns[i], rows[i], here);
            cells[count] = {columns[i], rows[i], {corners[count].x, corners[count].y}};
            ++count;
        }
        if (count >= 3)
            lookAtTriangles(corners, cells, count);
        else if (std::isfinite(height(column, row)))
            lookAtCell(column, row);
    }

    void lookAtTriangles(const Corners& corners, const std::array<CellAtPlace, 4>& cells, std::size_t count)
    {
        const auto away = [this](const CellAtPlace& cell) {
            return std::hypot(cell.at.x - m_place.x, cell.at.y - m_place.y);
        };
        const auto nearest =
            std::min_element(cells.begin(), cells.begin() + static_cast<std::ptrdiff_t>(count),
                             [&](const CellAtPlace& a, const CellAtPlace& b) { return away(a) < away(b); });
        for (std::size_t last = 2; last < count; ++last)
            take(corners[0], corners[last - 1], corners[last], *nearest);
    }

    void lookAtCell(int column, int row)
    {
        const double here = height(column, row);
        const StrokePoint middle = placed(column, row, here);
        const CellAtPlace cell{column, row, {middle.x, middle.y}};
        const Corners corners{placed(column - 0.5, row - 0.5, here), placed(column + 0.5, row - 0.5, here),
                              placed(column + 0.5, row + 0.5, here), placed(column - 0.5, row + 0.5, here)};
        take(corners[0], corners[1], corners[2], cell);
        take(corners[0], corners[2], corners[3], cell);
    }

    void take(const StrokePoint& a, const StrokePoint& b, const StrokePoint& c, const CellAtPlace& cell)
    {
        double depth = 0;
        if (!depthAt(a, b, c, m_place, depth) || !(depth < m_depth))
            return;
        m_depth = depth;
        m_found = cell;
    }

    const SurfaceLevels& m_levels;
    const SurfaceShape& m_shape;
    const Camera& m_camera;
    Point m_place;
    std::array<int, 4> m_order{0, 1, 2, 3};
    double m_depth = std::numeric_limits<double>::infinity();
    CellAtPlace m_found;
};

} // namespace

bool findCellAt(const SurfaceLevels& levels, const SurfaceShape& shape, const Camera& camera, Point place,
                CellAtPlace& found)
{
    Search search(levels, shape, camera, place);
    if (!search.find())
        return false;
    found = search.found();
    return true;
}

} // namespace velmora::engine
