#pragma once

#include "Model.h"
#include "ModelSelection.h"
#include "ModelView.h"

#include "engine/VelContent.h"

#include <map>

namespace velmora::model {

class ModelScene;

/// A model that VTK draws.
class ModelContent final : public content::Content {
public:
    explicit ModelContent(std::shared_ptr<const Model> model);
    ~ModelContent() override;

    bool draw(const content::Drawing& drawing, content::Checkpoint& checkpoint) override;
    bool drawsCoarsely() const override { return true; }
    void leaveContext(unsigned long context, bool isCurrent) override;

    std::string description() const override;
    std::string notes() const override { return m_model->notes; }
    std::string details() const override;
    bool extent(content::Extent& found) const override;

    bool canRotate() const override { return true; }
    void rotate(double aboutVertical, double tilt) override { m_view.rotate(aboutVertical, tilt); }
    bool lookFrom(content::Side side) override;
    void translate(double dx, double dy) override;
    void zoom(double factor, double x, double y) override;
    void fit() override { m_view = ModelView(); }
    void showAll() override;
    std::string viewState() const override { return m_view.text(); }
    bool setViewState(const std::string& state) override { return m_view.take(state); }

    bool valueAt(double x, double y, content::ShownValue& found) const override;
    int pick(double x1, double y1, double x2, double y2, const content::PickFilter& filter) override;
    void deselectAll() override { m_selection = ModelSelection(m_model); }
    int selectedCount() const override { return m_selection.count(); }
    std::string selectionDescription() const override { return m_selection.description(); }

private:
    Projection projection() const;
    bool drawScene(const std::shared_ptr<ModelScene>& scene, const content::Drawing& drawing,
                   content::Checkpoint& checkpoint);

    std::shared_ptr<const Model> m_model;
    ModelView m_view;
    ModelSelection m_selection;
    double m_frameWidth = 4; ///< of the drawing area, in any unit
    double m_frameHeight = 3;
    std::map<unsigned long, std::shared_ptr<ModelScene>> m_scenes; ///< by the contexts that keep them
};

} // namespace velmora::model
