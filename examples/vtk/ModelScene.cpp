#include "ModelScene.h"

#include "ColourLegend.h"

#include <algorithm>

#include <GL/gl.h>

#include <vtkCamera.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkLookupTable.h>
#include <vtkMatrix4x4.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLActor.h>
#include <vtkOpenGLPolyDataMapper.h>
#include <vtkOpenGLRenderer.h>
#include <vtkOpenGLShaderCache.h>
#include <vtkOpenGLState.h>
#include <vtkProperty.h>

namespace velmora::model {
namespace {

constexpr double PlainColour[] = {0.80, 0.82, 0.85};
constexpr double MarkColour[] = {0.94, 0.47, 0.0};
constexpr double PointsOfADot = 2.5; ///< of 1/72 inch
constexpr double PointsOfALine = 1;
// So that what the light does not reach still shows its colour.
constexpr double Ambient = 0.18;

/// True as long as it lives.
class DrawingMark {
public:
    explicit DrawingMark(bool& mark) : m_mark(mark) { m_mark = true; }
    ~DrawingMark() { m_mark = false; }
    DrawingMark(const DrawingMark&) = delete;
    DrawingMark& operator=(const DrawingMark&) = delete;

private:
    bool& m_mark;
};

} // namespace

/// The context that is current, as VTK's window.
class ForeignWindow final : public vtkGenericOpenGLRenderWindow {
public:
    vtkTypeMacro(ForeignWindow, vtkGenericOpenGLRenderWindow) static ForeignWindow* New()
    {
        VTK_STANDARD_NEW_BODY(ForeignWindow);
    }
    // Whoever uses the scene has made the context current, and knows when it is gone.
    void MakeCurrent() override {}
    bool IsCurrent() override { return true; }

    // The entry points come from the display's library, which has nothing to say of a context without a display.
    void OpenGLInitContext() override
    {
        const int warnings = GetGlobalWarningDisplay();
        SetGlobalWarningDisplay(0);
        vtkGenericOpenGLRenderWindow::OpenGLInitContext();
        SetGlobalWarningDisplay(warnings);
        GlewInitValid = true;
        Initialized = true;
    }
};

/// Prepares the drawing of actors, which is done one by one from outside.
class Stage final : public vtkOpenGLRenderer {
public:
    vtkTypeMacro(Stage, vtkOpenGLRenderer) static Stage* New() { VTK_STANDARD_NEW_BODY(Stage); }
    void prepare()
    {
        UpdateCamera();
        UpdateLightGeometry();
        UpdateLights();
    }
};

ModelScene::ModelScene(std::shared_ptr<const Model> model)
    : m_model(std::move(model)), m_window(vtkSmartPointer<ForeignWindow>::New()),
      m_stage(vtkSmartPointer<Stage>::New()), m_look(vtkSmartPointer<vtkProperty>::New()),
      m_markLook(vtkSmartPointer<vtkProperty>::New()), m_colours(coloursFor(m_model->colouring))
{
    m_window->SetReadyForRendering(true);
    m_window->SetMapped(1);
    m_window->AddRenderer(m_stage);
    m_stage->EraseOff();
    m_look->SetColor(PlainColour[0], PlainColour[1], PlainColour[2]);
    m_look->SetAmbient(Ambient);
    m_look->SetDiffuse(1 - Ambient);
    m_markLook->SetColor(MarkColour[0], MarkColour[1], MarkColour[2]);
    m_markLook->SetAmbient(Ambient);
    m_markLook->SetDiffuse(1 - Ambient);
}

ModelScene::~ModelScene()
{
    release();
}

ModelScene::Part ModelScene::partOf(vtkPolyData& data) const
{
    Part part;
    part.mapper = vtkSmartPointer<vtkOpenGLPolyDataMapper>::New();
    part.mapper->SetInputData(&data);
    part.mapper->StaticOn();
    const Colouring& colouring = m_model->colouring;
    if (colouring.by == Colouring::By::Nothing)
        part.mapper->ScalarVisibilityOff();
    if (colouring.hasLegend()) {
        part.mapper->SetLookupTable(m_colours);
        part.mapper->UseLookupTableScalarRangeOn();
        part.mapper->SetColorModeToMapScalars();
        // A colour in the middle of a cell is that of the value there.
        part.mapper->SetInterpolateScalarsBeforeMapping(colouring.by == Colouring::By::PointValues);
    }
    part.actor = vtkSmartPointer<vtkOpenGLActor>::New();
    part.actor->SetMapper(part.mapper);
    part.actor->SetProperty(m_look);
    return part;
}

ModelScene::Part ModelScene::markOf(vtkPolyData& data) const
{
    Part part;
    part.mapper = vtkSmartPointer<vtkOpenGLPolyDataMapper>::New();
    part.mapper->SetInputData(&data);
    part.mapper->StaticOn();
    part.mapper->ScalarVisibilityOff();
    // Before what it marks, which has the same depth.
    part.mapper->SetResolveCoincidentTopologyToPolygonOffset();
    part.mapper->SetRelativeCoincidentTopologyPolygonOffsetParameters(-1, -1);
    part.actor = vtkSmartPointer<vtkOpenGLActor>::New();
    part.actor->SetMapper(part.mapper);
    part.actor->SetProperty(m_markLook);
    return part;
}

bool ModelScene::draw(const content::Drawing& drawing, const PixelBox& part, const Projection& projection,
                      const ModelSelection& selection, content::Checkpoint& checkpoint)
{
    const DrawingMark mark(m_isDrawing);
    begin(drawing, part, projection);
    forgetMarks(selection);
    const bool isCoarse = drawing.detail == content::Detail::Coarse && m_model->coarse;
    const bool isWhole = isCoarse ? drawCoarse(selection, checkpoint) : drawPieces(selection, checkpoint);
    if (!m_isReleased)
        m_window->GetShaderCache()->ReleaseCurrentShader();
    return isWhole;
}

void ModelScene::begin(const content::Drawing& drawing, const PixelBox& part, const Projection& projection)
{
    m_window->SetSize(drawing.targetWidth, drawing.targetHeight);
    m_window->OpenGLInit();
    vtkOpenGLState* const state = m_window->GetState();
    state->Reset();
    state->vtkglEnable(GL_DEPTH_TEST);
    state->vtkglDepthFunc(GL_LEQUAL);
    state->vtkglDepthMask(GL_TRUE);
    m_window->GetShaderCache()->ReleaseCurrentShader();
    aim(drawing, part, projection);
    for (vtkProperty* const look : {m_look.Get(), m_markLook.Get()}) {
        look->SetPointSize(static_cast<float>(std::max(1.0, PointsOfADot * drawing.pixelsPerPoint)));
        look->SetLineWidth(static_cast<float>(std::max(1.0, PointsOfALine * drawing.pixelsPerPoint)));
    }
    m_stage->prepare();
}

// The viewport is the part that is seen, and the projection that part's of the frame's: so a tile has the pixels of the
// whole picture.
void ModelScene::aim(const content::Drawing& drawing, const PixelBox& part, const Projection& projection)
{
    const double width = drawing.targetWidth;
    const double height = drawing.targetHeight;
    m_stage->SetViewport(part.left / width, part.bottom / height, (part.left + part.width) / width,
                         (part.bottom + part.height) / height);
    vtkCamera& camera = *m_stage->GetActiveCamera();
    camera.SetPosition(projection.eye().data());
    camera.SetFocalPoint(projection.target().data());
    camera.SetViewUp(projection.up().data());
    camera.SetClippingRange(projection.nearest(), projection.farthest());
    camera.SetParallelProjection(projection.isParallel());
    vtkNew<vtkMatrix4x4> matrix;
    matrix->DeepCopy(projection
                         .matrixFor({part.left - drawing.frameX, part.bottom - drawing.frameY,
                                     static_cast<double>(part.width), static_cast<double>(part.height)})
                         .data());
    camera.SetExplicitProjectionTransformMatrix(matrix);
    camera.UseExplicitProjectionTransformMatrixOn();
}

bool ModelScene::drawCoarse(const ModelSelection& selection, content::Checkpoint& checkpoint)
{
    if (!m_coarse.actor)
        m_coarse = partOf(*m_model->coarse);
    drawPart(m_coarse);
    for (const auto& shown : selection.shown())
        drawMark(shown.first, selection);
    return checkpoint.goOn(1);
}

bool ModelScene::drawPieces(const ModelSelection& selection, content::Checkpoint& checkpoint)
{
    const std::size_t count = m_model->pieces.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (m_pieces.size() == i)
            m_pieces.push_back(partOf(*m_model->pieces[i].data));
        drawPart(m_pieces[i]);
        drawMark(i, selection);
        if (!checkpoint.goOn(static_cast<double>(i + 1) / static_cast<double>(count)))
            return false;
    }
    return true;
}

void ModelScene::drawMark(std::size_t piece, const ModelSelection& selection)
{
    const auto shown = selection.shown().find(piece);
    if (shown == selection.shown().end())
        return;
    Mark& mark = m_marks[piece];
    if (!mark.data)
        mark = {shown->second, markOf(*shown->second)};
    drawPart(mark.part);
}

void ModelScene::forgetMarks(const ModelSelection& selection)
{
    for (auto mark = m_marks.begin(); mark != m_marks.end();) {
        const auto shown = selection.shown().find(mark->first);
        if (shown != selection.shown().end() && shown->second == mark->second.data) {
            ++mark;
            continue;
        }
        releasePart(mark->second.part);
        mark = m_marks.erase(mark);
    }
}

void ModelScene::drawPart(const Part& part)
{
    part.actor->RenderOpaqueGeometry(m_stage);
}

void ModelScene::releasePart(const Part& part)
{
    if (part.actor)
        part.actor->ReleaseGraphicsResources(m_window);
}

void ModelScene::release()
{
    if (m_isReleased)
        return;
    m_isReleased = true;
    for (const Part& part : m_pieces)
        releasePart(part);
    releasePart(m_coarse);
    for (const auto& mark : m_marks)
        releasePart(mark.second.part);
    m_window->Finalize();
}

} // namespace velmora::model
