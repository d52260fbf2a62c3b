#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

class vtkStaticCellLocator;

namespace velmora::model {

using Point3 = std::array<double, 3>;

struct Bounds {
    Point3 least{};
    Point3 greatest{};
    Point3 centre() const;
    double radius() const; ///< of the ball around it; 1 for a single point
};

/// What a model is coloured with.
struct Colouring {
    enum class By { Nothing, PointValues, CellValues, PointColours };
    By by = By::Nothing;
    std::string name;
    double least = 0; ///< of the finite values
    double greatest = 0;
    bool hasLegend() const { return by == By::PointValues || by == By::CellValues; }
};

/// Neighbouring cells, in few enough numbers that each piece is drawn in about a millisecond. Points and values are its
/// own. Its cells follow each other in the model's order.
struct Piece {
    vtkSmartPointer<vtkPolyData> data;
    vtkIdType firstCell = 0;
    Bounds bounds;
    /// Finds cells along a line of sight. Made when it is first needed.
    mutable vtkSmartPointer<vtkStaticCellLocator> locator;
};

/// A file that was read. Nothing in it changes any more, so that drawings of several contexts share it.
struct Model {
    std::string kind; ///< of the data set, for a person
    std::vector<Piece> pieces;
    /// A model of the same extent with few enough cells to be drawn at once; null when all pieces are few enough.
    vtkSmartPointer<vtkPolyData> coarse;
    Bounds bounds;
    Colouring colouring;
    vtkIdType points = 0;
    vtkIdType cells = 0;
    vtkIdType shownCells = 0; ///< of the pieces: of solid cells the faces that can be seen from outside
    /// The file's number of each cell of the pieces; null when that is the cell's place.
    vtkSmartPointer<vtkDataArray> cellNumbers;
    std::vector<std::string> arrays; ///< lines of a name and a value with a tab between them
    std::string notes;

    vtkIdType numberOf(const Piece& piece, vtkIdType cell) const;
};

} // namespace velmora::model
