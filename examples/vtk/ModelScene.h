#pragma once

#include "ModelSelection.h"
#include "ModelView.h"

#include "engine/VelContent.h"

#include <map>
#include <vector>

#include <vtkNew.h>

class vtkOpenGLActor;
class vtkOpenGLPolyDataMapper;
class vtkProperty;
class vtkScalarsToColors;

namespace velmora::model {

class ForeignWindow;
class Stage;

/// The part of a target that a drawing covers: target pixels.
struct PixelBox {
    int left = 0;
    int bottom = 0;
    int width = 0;
    int height = 0;
};

/// VTK's objects for one model in one OpenGL context. The context is current whenever it is used, and when it goes;
/// or none is, for a context that is gone.
class ModelScene {
public:
    explicit ModelScene(std::shared_ptr<const Model> model);
    ~ModelScene();
    ModelScene(const ModelScene&) = delete;
    ModelScene& operator=(const ModelScene&) = delete;

    /// Draws into the framebuffer that is bound, with its samples; false when `checkpoint` said to stop.
    bool draw(const content::Drawing& drawing, const PixelBox& part, const Projection& projection,
              const ModelSelection& selection, content::Checkpoint& checkpoint);
    /// Gives back what it has in the context. It draws nothing any more then.
    void release();
    /// For a drawing that comes in the middle of another.
    bool isDrawing() const { return m_isDrawing; }

private:
    struct Part {
        vtkSmartPointer<vtkOpenGLPolyDataMapper> mapper;
        vtkSmartPointer<vtkOpenGLActor> actor;
    };
    struct Mark {
        vtkSmartPointer<vtkPolyData> data;
        Part part;
    };

    Part partOf(vtkPolyData& data) const;
    Part markOf(vtkPolyData& data) const;
    void begin(const content::Drawing& drawing, const PixelBox& part, const Projection& projection);
    void aim(const content::Drawing& drawing, const PixelBox& part, const Projection& projection);
    bool drawCoarse(const ModelSelection& selection, content::Checkpoint& checkpoint);
    bool drawPieces(const ModelSelection& selection, content::Checkpoint& checkpoint);
    void drawMark(std::size_t piece, const ModelSelection& selection);
    void forgetMarks(const ModelSelection& selection);
    void drawPart(const Part& part);
    void releasePart(const Part& part);

    std::shared_ptr<const Model> m_model;
    vtkSmartPointer<ForeignWindow> m_window;
    vtkSmartPointer<Stage> m_stage;
    vtkSmartPointer<vtkProperty> m_look;
    vtkSmartPointer<vtkProperty> m_markLook;
    vtkSmartPointer<vtkScalarsToColors> m_colours;
    std::vector<Part> m_pieces;
    Part m_coarse; ///< null while there was no coarse drawing
    std::map<std::size_t, Mark> m_marks;
    bool m_isDrawing = false;
    bool m_isReleased = false;
};

} // namespace velmora::model
