#include "engine/plot/surface/VisiblePieces.h"

#include <algorithm>

namespace velmora::engine {

namespace {

// Smaller meshes cost much and show no more than the next level.
constexpr double LeastMeshPixels = 1.2;
constexpr std::size_t TrianglesAPiece = std::size_t{2} * SurfaceMesh::PieceSide * SurfaceMesh::PieceSide;

class Chooser {
public:
    Chooser(const SurfaceData& data, const Camera& camera, const Canvas& canvas)
        : m_data(data), m_camera(camera), m_canvas(canvas)
    {}

    VisiblePieces all(int level) const
    {
        const SurfaceMesh mesh(m_data.levels, m_data.shape, level);
        VisiblePieces found{level, {}};
        for (int row = 0; row < mesh.pieceRows(); ++row)
            for (int column = 0; column < mesh.pieceColumns(); ++column)
                add(mesh, column, row, found);
        return found;
    }

    // A piece lies where the one lies that it is a part of.
    VisiblePieces finer(const VisiblePieces& coarse) const
    {
        const SurfaceMesh above(m_data.levels, m_data.shape, coarse.level);
        const SurfaceMesh mesh(m_data.levels, m_data.shape, coarse.level - 1);
        VisiblePieces found{coarse.level - 1, {}};
        for (const VisiblePiece& piece : coarse.pieces) {
            const int lastRow = end(piece.row, above.pieceRows(), mesh.pieceRows());
            const int lastColumn = end(piece.column, above.pieceColumns(), mesh.pieceColumns());
            for (int row = 2 * piece.row; row < lastRow; ++row)
                for (int column = 2 * piece.column; column < lastColumn; ++column)
                    add(mesh, column, row, found);
        }
        return found;
    }

private:
    /// Behind the last part of a piece. The last piece of a level has the rest of the finer one.
    static int end(int piece, int pieces, int finerPieces)
    {
        return piece + 1 == pieces ? finerPieces : std::min(2 * piece + 2, finerPieces);
    }

    void add(const SurfaceMesh& mesh, int column, int row, VisiblePieces& found) const
    {
        const std::vector<glm::dvec3> box = mesh.pieceBox(column, row);
        if (box.empty())
            return;
        const Rect where = coveredBy(box, m_camera);
        if (!m_canvas.shows(where))
            return;
        const glm::dvec3& a = box.front();
        const glm::dvec3& b = box.back();
        found.pieces.push_back(
            {column, row, where, m_camera.nearness({(a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2})});
    }

    const SurfaceData& m_data;
    const Camera& m_camera;
    const Canvas& m_canvas;
};

} // namespace

VisiblePieces chooseVisiblePieces(const SurfaceData& data, const Camera& camera, const Canvas& canvas,
                                  std::size_t mostTriangles)
{
    const Chooser chooser(data, camera, canvas);
    const int finest = fullLevel(data, camera);
    VisiblePieces chosen = chooser.all(data.levels.coarsest());
    while (chosen.level > finest) {
        VisiblePieces finer = chooser.finer(chosen);
        if (finer.pieces.size() * TrianglesAPiece > mostTriangles)
            break;
        chosen = std::move(finer);
    }
    std::sort(chosen.pieces.begin(), chosen.pieces.end(),
              [](const VisiblePiece& a, const VisiblePiece& b) { return a.nearness > b.nearness; });
    return chosen;
}

int fullLevel(const SurfaceData& data, const Camera& camera)
{
    const double cell = camera.scale() * std::min(data.shape.stepX(), data.shape.stepY());
    int level = 0;
    while (level < data.levels.coarsest() && cell * (1 << level) < LeastMeshPixels)
        ++level;
    return level;
}

Rect coveredBy(const std::vector<glm::dvec3>& corners, const Camera& camera)
{
    Rect rect{1e30, 1e30, -1e30, -1e30};
    for (const glm::dvec3& corner : corners) {
        const StrokePoint place = camera.project(corner);
        rect.take({place.x, place.y});
    }
    return rect;
}

} // namespace velmora::engine
