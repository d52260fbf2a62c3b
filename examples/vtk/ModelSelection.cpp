#include "ModelSelection.h"

#include <vtkCellArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>

namespace velmora::model {
namespace {

constexpr int Named = 3; ///< of the selected cells

vtkSmartPointer<vtkPolyData> copyOf(vtkPolyData& piece, const std::set<vtkIdType>& cells)
{
    auto copy = vtkSmartPointer<vtkPolyData>::New();
    copy->SetPoints(piece.GetPoints());
    copy->AllocateEstimate(static_cast<vtkIdType>(cells.size()), 3);
    vtkNew<vtkIdList> points;
    for (const vtkIdType cell : cells) {
        piece.GetCellPoints(cell, points);
        copy->InsertNextCell(piece.GetCellType(cell), points);
    }
    return copy;
}

} // namespace

int ModelSelection::add(std::size_t piece, const std::vector<vtkIdType>& cells)
{
    std::set<vtkIdType>& mine = m_cells[piece];
    const std::size_t before = mine.size();
    mine.insert(cells.begin(), cells.end());
    const int added = static_cast<int>(mine.size() - before);
    if (added > 0)
        m_shown[piece] = copyOf(*m_model->pieces[piece].data, mine);
    return added;
}

int ModelSelection::count() const
{
    std::size_t sum = 0;
    for (const auto& piece : m_cells)
        sum += piece.second.size();
    return static_cast<int>(sum);
}

std::string ModelSelection::description() const
{
    std::string text;
    int named = 0;
    for (const auto& piece : m_cells)
        for (const vtkIdType cell : piece.second) {
            if (named == Named)
                return text + " and " + std::to_string(count() - named) + " more";
            text += (named++ == 0 ? "cell " : ", cell ") +
                    std::to_string(m_model->numberOf(m_model->pieces[piece.first], cell));
        }
    return text;
}

} // namespace velmora::model
