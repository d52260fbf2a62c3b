#include "ModelPicking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <vtkBox.h>
#include <vtkCellData.h>
#include <vtkGenericCell.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkStaticCellLocator.h>

namespace velmora::model {
namespace {

// Of the frame's height: how far from a thin line a person may point at it.
constexpr double Reach = 0.006;

/// A line of sight, as VTK takes it.
struct Ray {
    Point3 from{};
    Point3 to{};
    double tolerance = 0;
};

bool mayMeet(const Piece& piece, const Ray& ray)
{
    double bounds[6];
    for (std::size_t i = 0; i < 3; ++i) {
        bounds[2 * i] = piece.bounds.least[i] - ray.tolerance;
        bounds[2 * i + 1] = piece.bounds.greatest[i] + ray.tolerance;
    }
    double direction[3];
    for (std::size_t i = 0; i < 3; ++i)
        direction[i] = ray.to[i] - ray.from[i];
    double at[3];
    double along = 0;
    return vtkBox::IntersectBox(bounds, ray.from.data(), direction, at, along) != 0;
}

double valueOf(vtkPolyData& piece, vtkGenericCell& cell, vtkIdType number, const double* weights)
{
    if (vtkDataArray* const ofCells = piece.GetCellData()->GetScalars())
        return ofCells->GetComponent(number, 0);
    vtkDataArray& ofPoints = *piece.GetPointData()->GetScalars();
    double value = 0;
    for (vtkIdType i = 0; i < cell.GetNumberOfPoints(); ++i)
        value += weights[i] * ofPoints.GetComponent(cell.GetPointId(i), 0);
    return value;
}

/// A cell on a line of sight.
struct Crossing {
    double along = std::numeric_limits<double>::infinity(); ///< of the line, 0 to 1
    vtkIdType cell = -1;
    Point3 point{};
};

Crossing crossingOfSurface(const Piece& piece, const Ray& ray, vtkGenericCell& cell)
{
    if (!piece.locator) {
        piece.locator = vtkSmartPointer<vtkStaticCellLocator>::New();
        piece.locator->SetDataSet(piece.data);
        piece.locator->BuildLocator();
    }
    Crossing found;
    Point3 inCell{};
    int part = 0;
    if (!piece.locator->IntersectWithLine(ray.from.data(), ray.to.data(), 0, found.along, found.point.data(),
                                          inCell.data(), part, found.cell, &cell))
        return {};
    return found;
}

/// Points and lines have no width: what is near them counts.
Crossing crossingOfThinCells(const Piece& piece, const Ray& ray, vtkGenericCell& cell)
{
    Crossing found;
    for (vtkIdType i = 0; i < piece.data->GetNumberOfCells(); ++i) {
        piece.data->GetCell(i, &cell);
        double along = 0;
        Point3 at{};
        Point3 inCell{};
        int part = 0;
        if (cell.IntersectWithLine(ray.from.data(), ray.to.data(), ray.tolerance, along, at.data(), inCell.data(),
                                   part) &&
            along < found.along)
            found = {along, i, at};
    }
    return found;
}

double valueOf(const Piece& piece, const Crossing& crossing, vtkGenericCell& cell)
{
    piece.data->GetCell(crossing.cell, &cell);
    std::vector<double> weights(static_cast<std::size_t>(cell.GetNumberOfPoints()));
    Point3 closest{};
    Point3 inCell{};
    double distance = 0;
    int part = 0;
    cell.EvaluatePosition(crossing.point.data(), closest.data(), part, inCell.data(), distance, weights.data());
    return valueOf(*piece.data, cell, crossing.cell, weights.data());
}

void findIn(const Model& model, std::size_t number, const Ray& ray, double& nearest, std::optional<Hit>& found)
{
    const Piece& piece = model.pieces[number];
    vtkNew<vtkGenericCell> cell;
    const bool isSurface = piece.data->GetNumberOfVerts() + piece.data->GetNumberOfLines() == 0;
    const Crossing crossing = isSurface ? crossingOfSurface(piece, ray, *cell) : crossingOfThinCells(piece, ray, *cell);
    if (crossing.cell < 0 || crossing.along >= nearest)
        return;
    nearest = crossing.along;
    found = Hit{number, crossing.cell, crossing.point, std::nullopt};
    if (model.colouring.hasLegend())
        found->value = valueOf(piece, crossing, *cell);
}

} // namespace

std::optional<Hit> hitAt(const Model& model, const Projection& projection, double x, double y)
{
    Ray ray;
    projection.ray(x, y, ray.from, ray.to);
    ray.tolerance = Reach * projection.heightAtCentre();
    std::optional<Hit> found;
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < model.pieces.size(); ++i)
        if (mayMeet(model.pieces[i], ray))
            findIn(model, i, ray, nearest, found);
    return found;
}

std::vector<std::vector<vtkIdType>> cellsIn(const Model& model, const Projection& projection, double x1, double y1,
                                            double x2, double y2)
{
    std::vector<std::vector<vtkIdType>> found(model.pieces.size());
    std::vector<bool> isInside;
    vtkNew<vtkIdList> corners;
    for (std::size_t number = 0; number < model.pieces.size(); ++number) {
        vtkPolyData& piece = *model.pieces[number].data;
        isInside.assign(static_cast<std::size_t>(piece.GetNumberOfPoints()), false);
        for (vtkIdType i = 0; i < piece.GetNumberOfPoints(); ++i) {
            Point3 point{};
            piece.GetPoint(i, point.data());
            const Point3 at = projection.project(point);
            isInside[static_cast<std::size_t>(i)] = at[0] >= x1 && at[0] <= x2 && at[1] >= y1 && at[1] <= y2;
        }
        if (std::find(isInside.begin(), isInside.end(), true) == isInside.end())
            continue;
        for (vtkIdType cell = 0; cell < piece.GetNumberOfCells(); ++cell) {
            piece.GetCellPoints(cell, corners);
            for (vtkIdType i = 0; i < corners->GetNumberOfIds(); ++i)
                if (isInside[static_cast<std::size_t>(corners->GetId(i))]) {
                    found[number].push_back(cell);
                    break;
                }
        }
    }
    return found;
}

} // namespace velmora::model
