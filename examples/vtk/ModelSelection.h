#pragma once

#include "Model.h"

#include <map>
#include <set>

namespace velmora::model {

/// Cells of a model.
class ModelSelection {
public:
    explicit ModelSelection(std::shared_ptr<const Model> model) : m_model(std::move(model)) {}

    /// How many of them are new.
    int add(std::size_t piece, const std::vector<vtkIdType>& cells);
    int count() const;
    /// "cell 3, cell 17 and 12 more".
    std::string description() const;
    /// What is selected of each piece, for drawings. A later selection is another object.
    const std::map<std::size_t, vtkSmartPointer<vtkPolyData>>& shown() const { return m_shown; }

private:
    std::shared_ptr<const Model> m_model;
    std::map<std::size_t, std::set<vtkIdType>> m_cells; ///< of each piece
    std::map<std::size_t, vtkSmartPointer<vtkPolyData>> m_shown;
};

} // namespace velmora::model
