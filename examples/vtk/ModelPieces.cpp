#include "ModelPieces.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include <vtkCellArray.h>
#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

namespace velmora::model {
namespace {

// Corners of cells in a piece. Drawn by a processor that takes about a millisecond or two.
constexpr vtkIdType CornersOfAPiece = 30000;
constexpr double ShareOfReading = 0.75; ///< what was done before of the whole reading
constexpr double ShareOfCutting = 0.15;

std::string text(double value)
{
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 7).ptr;
    return std::string(digits.data(), end);
}

/// Of the finite values, of the lengths for vectors; false when there are none.
bool rangeOf(vtkDataArray& array, double range[2])
{
    array.GetFiniteRange(range, array.GetNumberOfComponents() > 1 ? -1 : 0);
    return array.GetNumberOfTuples() > 0 && range[0] <= range[1] && std::isfinite(range[1] - range[0]);
}

bool areColours(vtkDataArray& array)
{
    return array.GetDataType() == VTK_UNSIGNED_CHAR &&
           (array.GetNumberOfComponents() == 3 || array.GetNumberOfComponents() == 4);
}

vtkDataArray* sourceOf(vtkPolyData& surface, const Colouring& colouring)
{
    vtkDataSetAttributes* const attributes = colouring.by == Colouring::By::CellValues
                                                 ? static_cast<vtkDataSetAttributes*>(surface.GetCellData())
                                                 : surface.GetPointData();
    return colouring.by == Colouring::By::Nothing ? nullptr : attributes->GetArray(colouring.name.c_str());
}

/// The file's own scalars, or its first array of numbers, which are no normals.
void chooseColouring(vtkDataSetAttributes& attributes, bool ofPoints, Colouring& colouring)
{
    vtkDataArray* chosen = attributes.GetScalars();
    for (int i = 0; !chosen && i < attributes.GetNumberOfArrays(); ++i)
        if (attributes.GetArray(i) != attributes.GetNormals() && attributes.GetArray(i) != attributes.GetTCoords())
            chosen = attributes.GetArray(i);
    double range[2] = {0, 0};
    if (!chosen || !chosen->GetName() || !rangeOf(*chosen, range))
        return;
    if (areColours(*chosen) && !ofPoints)
        return;
    colouring.by = areColours(*chosen) ? Colouring::By::PointColours
                   : ofPoints          ? Colouring::By::PointValues
                                       : Colouring::By::CellValues;
    colouring.name = chosen->GetName();
    colouring.least = range[0];
    colouring.greatest = range[1];
}

bool isInternal(const vtkDataArray& array)
{
    return const_cast<vtkDataArray&>(array).GetName() &&
           std::strncmp(const_cast<vtkDataArray&>(array).GetName(), "vtk", 3) == 0;
}

void addLines(vtkDataSetAttributes& attributes, const char* what, std::vector<std::string>& lines)
{
    for (int i = 0; i < attributes.GetNumberOfArrays(); ++i) {
        vtkDataArray* const array = attributes.GetArray(i);
        double range[2] = {0, 0};
        if (!array || isInternal(*array))
            continue;
        const std::string name = array->GetName() ? array->GetName() : "without a name";
        const std::string numbers = rangeOf(*array, range) ? text(range[0]) + " to " + text(range[1]) : "no numbers";
        const std::string length = array->GetNumberOfComponents() > 1 ? ", lengths" : "";
        lines.push_back(std::string(what) + " " + name + "\t" + numbers + length);
    }
}

/// The values of a piece; of vectors the lengths, so that a piece has one number for each place.
vtkSmartPointer<vtkDataArray> single(vtkDataArray& values)
{
    if (values.GetNumberOfComponents() == 1)
        return &values;
    vtkNew<vtkFloatArray> lengths;
    lengths->SetNumberOfTuples(values.GetNumberOfTuples());
    for (vtkIdType i = 0; i < values.GetNumberOfTuples(); ++i) {
        double sum = 0;
        for (int component = 0; component < values.GetNumberOfComponents(); ++component)
            sum += values.GetComponent(i, component) * values.GetComponent(i, component);
        lengths->SetValue(i, static_cast<float>(std::sqrt(sum)));
    }
    return lengths.Get();
}

vtkSmartPointer<vtkDataArray> emptyLike(vtkDataArray& array)
{
    auto copy = vtkSmartPointer<vtkDataArray>::Take(array.NewInstance());
    copy->SetNumberOfComponents(array.GetNumberOfComponents());
    copy->SetName(array.GetName());
    return copy;
}

/// Cuts one surface.
class Cutter {
public:
    Cutter(vtkPolyData& surface, Model& model, content::Checkpoint& checkpoint)
        : m_surface(surface), m_model(model), m_checkpoint(checkpoint), m_values(sourceOf(surface, model.colouring)),
          m_newPoint(static_cast<std::size_t>(surface.GetNumberOfPoints()), -1)
    {}

    void cut()
    {
        begin();
        vtkCellArray* const kinds[] = {m_surface.GetVerts(), m_surface.GetLines(), m_surface.GetPolys(),
                                       m_surface.GetStrips()};
        for (std::size_t kind = 0; kind < 4; ++kind) {
            const auto cells = vtk::TakeSmartPointer(kinds[kind]->NewIterator());
            for (cells->GoToFirstCell(); !cells->IsDoneWithTraversal(); cells->GoToNextCell())
                add(*cells, kind);
        }
        end();
    }

private:
    void begin()
    {
        for (auto& cells : m_cells)
            cells = vtkSmartPointer<vtkCellArray>::New();
        m_points->Reset();
        m_corners = 0;
        m_first = m_next;
    }

    void add(vtkCellArrayIterator& cells, std::size_t kind)
    {
        vtkIdType count = 0;
        const vtkIdType* corners = nullptr;
        cells.GetCurrentCell(count, corners);
        if (m_corners > 0 && m_corners + count > CornersOfAPiece) {
            end();
            begin();
        }
        m_cells[kind]->InsertNextCell(static_cast<int>(count));
        for (vtkIdType i = 0; i < count; ++i)
            m_cells[kind]->InsertCellPoint(pointOfPiece(corners[i]));
        m_corners += count;
        ++m_next;
    }

    vtkIdType pointOfPiece(vtkIdType point)
    {
        vtkIdType& mine = m_newPoint[static_cast<std::size_t>(point)];
        if (mine < 0)
            mine = m_points->InsertNextId(point);
        return mine;
    }

    void end()
    {
        if (m_next == m_first)
            return;
        Piece piece;
        piece.data = vtkSmartPointer<vtkPolyData>::New();
        piece.firstCell = m_first;
        copyPoints(*piece.data);
        piece.data->SetVerts(m_cells[0]);
        piece.data->SetLines(m_cells[1]);
        piece.data->SetPolys(m_cells[2]);
        piece.data->SetStrips(m_cells[3]);
        copyValues(*piece.data);
        const double* const bounds = piece.data->GetBounds();
        piece.bounds = {{bounds[0], bounds[2], bounds[4]}, {bounds[1], bounds[3], bounds[5]}};
        m_model.pieces.push_back(piece);
        for (vtkIdType i = 0; i < m_points->GetNumberOfIds(); ++i)
            m_newPoint[static_cast<std::size_t>(m_points->GetId(i))] = -1;
        const double done = static_cast<double>(m_next) / static_cast<double>(m_surface.GetNumberOfCells());
        if (!m_checkpoint.goOn(ShareOfReading + ShareOfCutting * done))
            throw content::Interrupted();
    }

    void copyPoints(vtkPolyData& piece) const
    {
        vtkNew<vtkPoints> points;
        points->SetDataType(m_surface.GetPoints()->GetDataType());
        points->SetNumberOfPoints(m_points->GetNumberOfIds());
        m_surface.GetPoints()->GetPoints(m_points, points);
        piece.SetPoints(points);
        if (vtkDataArray* const normals = m_surface.GetPointData()->GetNormals()) {
            const auto copy = emptyLike(*normals);
            copy->SetNumberOfTuples(m_points->GetNumberOfIds());
            normals->GetTuples(m_points, copy);
            piece.GetPointData()->SetNormals(copy);
        }
    }

    void copyValues(vtkPolyData& piece) const
    {
        if (!m_values)
            return;
        const auto copy = emptyLike(*m_values);
        const bool ofCells = m_model.colouring.by == Colouring::By::CellValues;
        copy->SetNumberOfTuples(ofCells ? m_next - m_first : m_points->GetNumberOfIds());
        if (ofCells)
            m_values->GetTuples(m_first, m_next - 1, copy);
        else
            m_values->GetTuples(m_points, copy);
        if (m_model.colouring.by == Colouring::By::PointColours)
            piece.GetPointData()->SetScalars(copy);
        else if (ofCells)
            piece.GetCellData()->SetScalars(single(*copy));
        else
            piece.GetPointData()->SetScalars(single(*copy));
    }

    vtkPolyData& m_surface;
    Model& m_model;
    content::Checkpoint& m_checkpoint;
    vtkDataArray* m_values;
    std::vector<vtkIdType> m_newPoint; ///< in the piece that is being made, of each of the surface's
    std::array<vtkSmartPointer<vtkCellArray>, 4> m_cells;
    vtkNew<vtkIdList> m_points; ///< of the surface, in the order of the piece
    vtkIdType m_corners = 0;
    vtkIdType m_first = 0; ///< cell of the piece
    vtkIdType m_next = 0;
};

} // namespace

Point3 Bounds::centre() const
{
    Point3 middle{};
    for (std::size_t i = 0; i < 3; ++i)
        middle[i] = least[i] / 2 + greatest[i] / 2;
    return middle;
}

double Bounds::radius() const
{
    const double half = std::hypot(greatest[0] - least[0], greatest[1] - least[1], greatest[2] - least[2]) / 2;
    return half > 0 ? half : 1;
}

vtkIdType Model::numberOf(const Piece& piece, vtkIdType cell) const
{
    const vtkIdType place = piece.firstCell + cell;
    return cellNumbers ? static_cast<vtkIdType>(cellNumbers->GetComponent(place, 0)) : place;
}

void describeArrays(vtkPolyData& surface, Model& model)
{
    chooseColouring(*surface.GetPointData(), true, model.colouring);
    if (model.colouring.by == Colouring::By::Nothing)
        chooseColouring(*surface.GetCellData(), false, model.colouring);
    addLines(*surface.GetPointData(), "Values of points,", model.arrays);
    addLines(*surface.GetCellData(), "Values of cells,", model.arrays);
}

void cutIntoPieces(vtkPolyData& surface, Model& model, content::Checkpoint& checkpoint)
{
    Cutter(surface, model, checkpoint).cut();
}

} // namespace velmora::model
