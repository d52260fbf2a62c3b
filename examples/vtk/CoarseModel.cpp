#include "CoarseModel.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include <vtkCellArray.h>
#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

namespace velmora::model {
namespace {

// Few enough to be drawn in 20 milliseconds by a processor.
constexpr vtkIdType CellsAtOnce = 40000;
// Steps of the grid along the longest side, in which near points become one.
constexpr double Steps = 64;
constexpr double ShareBefore = 0.9; ///< of the whole reading

/// Joins the points of each cell of a grid.
class Joiner {
public:
    explicit Joiner(const Model& model)
        : m_least(model.bounds.least),
          m_perUnit(Steps / std::max({model.bounds.greatest[0] - model.bounds.least[0],
                                      model.bounds.greatest[1] - model.bounds.least[1],
                                      model.bounds.greatest[2] - model.bounds.least[2], 1e-300}))
    {
        m_points->SetDataTypeToDouble();
    }

    void add(vtkPolyData& piece)
    {
        const vtkIdType points = piece.GetNumberOfPoints();
        m_joined.resize(static_cast<std::size_t>(points));
        for (vtkIdType point = 0; point < points; ++point)
            m_joined[static_cast<std::size_t>(point)] = join(piece, point);
        m_cell = 0;
        addCells(piece, *piece.GetVerts(), 1);
        addCells(piece, *piece.GetLines(), 2);
        addCells(piece, *piece.GetPolys(), 0);
        addCells(piece, *piece.GetStrips(), 3);
    }

    vtkSmartPointer<vtkPolyData> result() const
    {
        auto coarse = vtkSmartPointer<vtkPolyData>::New();
        coarse->SetPoints(m_points);
        coarse->SetVerts(m_verts);
        coarse->SetLines(m_lines);
        coarse->SetPolys(m_triangles);
        if (m_pointValues)
            coarse->GetPointData()->SetScalars(m_pointValues);
        if (m_cellValues)
            coarse->GetCellData()->SetScalars(cellValuesInOrder());
        return coarse;
    }

private:
    std::int64_t step(double coordinate, std::size_t axis) const
    {
        return std::llround(std::floor((coordinate - m_least[axis]) * m_perUnit));
    }

    vtkIdType join(vtkPolyData& piece, vtkIdType point)
    {
        double at[3];
        piece.GetPoint(point, at);
        constexpr std::int64_t Base = 1024;
        const std::int64_t place = (step(at[0], 0) * Base + step(at[1], 1)) * Base + step(at[2], 2);
        const auto known = m_places.emplace(place, m_points->GetNumberOfPoints());
        if (known.second) {
            m_points->InsertNextPoint(at);
            copyValue(piece.GetPointData()->GetScalars(), point, m_pointValues);
        }
        return known.first->second;
    }

    static void copyValue(vtkDataArray* from, vtkIdType place, vtkSmartPointer<vtkDataArray>& values)
    {
        if (!from)
            return;
        if (!values) {
            values = vtkSmartPointer<vtkDataArray>::Take(from->NewInstance());
            values->SetNumberOfComponents(from->GetNumberOfComponents());
            values->SetName(from->GetName());
        }
        values->InsertNextTuple(place, from);
    }

    /// Cells of `corners` corners each follow one another along a cell's points; of polygons, a fan from the first.
    void addCells(vtkPolyData& piece, vtkCellArray& array, vtkIdType corners)
    {
        const auto cells = vtk::TakeSmartPointer(array.NewIterator());
        for (cells->GoToFirstCell(); !cells->IsDoneWithTraversal(); cells->GoToNextCell(), ++m_cell) {
            vtkIdType count = 0;
            const vtkIdType* points = nullptr;
            cells->GetCurrentCell(count, points);
            const bool isFan = corners == 0;
            const vtkIdType length = isFan ? 3 : corners;
            for (vtkIdType i = 0; i + length <= count; ++i)
                addCell(piece, length, points[isFan ? 0 : i], points[std::min(i + 1, count - 1)],
                        points[std::min(i + 2, count - 1)]);
        }
    }

    void addCell(vtkPolyData& piece, vtkIdType length, vtkIdType first, vtkIdType second, vtkIdType third)
    {
        std::array<vtkIdType, 3> joined{m_joined[static_cast<std::size_t>(first)],
                                        m_joined[static_cast<std::size_t>(second)],
                                        m_joined[static_cast<std::size_t>(third)]};
        auto sorted = joined;
        std::fill(sorted.begin() + length, sorted.end(), -1);
        std::sort(sorted.begin(), sorted.begin() + length);
        if (std::adjacent_find(sorted.begin(), sorted.begin() + length) != sorted.begin() + length)
            return; // it has no length or area any more
        constexpr std::uint64_t Base = 1U << 21U;
        std::uint64_t key = 0;
        for (const vtkIdType point : sorted)
            key = key * Base + static_cast<std::uint64_t>(point + 1);
        if (!m_known.insert(key).second)
            return;
        vtkCellArray* const kinds[] = {m_verts, m_lines, m_triangles};
        kinds[length - 1]->InsertNextCell(length, joined.data());
        copyValue(piece.GetCellData()->GetScalars(), m_cell, m_valuesOfKinds[static_cast<std::size_t>(length - 1)]);
        m_cellValues = m_cellValues || piece.GetCellData()->GetScalars();
    }

    // As a data set numbers its cells: points first, then lines, then triangles.
    vtkSmartPointer<vtkDataArray> cellValuesInOrder() const
    {
        vtkSmartPointer<vtkDataArray> all;
        for (const auto& values : m_valuesOfKinds)
            for (vtkIdType i = 0; values && i < values->GetNumberOfTuples(); ++i)
                copyValue(values, i, all);
        return all;
    }

    Point3 m_least;
    double m_perUnit;
    std::unordered_map<std::int64_t, vtkIdType> m_places;
    std::unordered_set<std::uint64_t> m_known; ///< cells
    std::vector<vtkIdType> m_joined;           ///< of each point of the piece
    vtkIdType m_cell = 0;                      ///< of the piece
    vtkNew<vtkPoints> m_points;
    vtkNew<vtkCellArray> m_verts;
    vtkNew<vtkCellArray> m_lines;
    vtkNew<vtkCellArray> m_triangles;
    vtkSmartPointer<vtkDataArray> m_pointValues;
    std::array<vtkSmartPointer<vtkDataArray>, 3> m_valuesOfKinds;
    bool m_cellValues = false;
};

} // namespace

void makeCoarse(Model& model, content::Checkpoint& checkpoint)
{
    if (model.shownCells <= CellsAtOnce)
        return;
    Joiner joiner(model);
    for (std::size_t i = 0; i < model.pieces.size(); ++i) {
        joiner.add(*model.pieces[i].data);
        const double done = static_cast<double>(i + 1) / static_cast<double>(model.pieces.size());
        if (!checkpoint.goOn(ShareBefore + (1 - ShareBefore) * done))
            throw content::Interrupted();
    }
    model.coarse = joiner.result();
}

} // namespace velmora::model
