#include "benchmarks/peers/Contender.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QVTKOpenGLNativeWidget.h>
#include <algorithm>
#include <vtkActor.h>
#include <vtkCallbackCommand.h>
#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkNew.h>
#include <vtkPNGWriter.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>
#include <vtkWindowToImageFilter.h>

namespace velmora::benchmark {

namespace {

// The peer looks for an abort between two actors, so that a host that wants to be
// interrupted cuts its surface into tiles.
constexpr int TilesASide = 8;

vtkNew<vtkPolyData> tileOf(const Surface& surface, int tileX, int tileY)
{
    const int cells = surface.side - 1;
    const int x0 = cells * tileX / TilesASide, x1 = cells * (tileX + 1) / TilesASide;
    const int y0 = cells * tileY / TilesASide, y1 = cells * (tileY + 1) / TilesASide;
    const int columns = x1 - x0 + 1;
    vtkNew<vtkPoints> points;
    vtkNew<vtkFloatArray> heights;
    vtkNew<vtkCellArray> quads;
    for (int y = y0; y <= y1; ++y) {
        for (int x = x0; x <= x1; ++x) {
            const float height =
                surface.heights[static_cast<std::size_t>(y) * std::size_t(surface.side) + std::size_t(x)];
            points->InsertNextPoint(double(x) / cells, double(y) / cells, 0.3 * height);
            heights->InsertNextValue(height);
            if (x == x1 || y == y1)
                continue;
            const vtkIdType corner = vtkIdType(y - y0) * columns + (x - x0);
            const vtkIdType quad[] = {corner, corner + 1, corner + columns + 1, corner + columns};
            quads->InsertNextCell(4, quad);
        }
    }
    vtkNew<vtkPolyData> tile;
    tile->SetPoints(points);
    tile->SetPolys(quads);
    tile->GetPointData()->SetScalars(heights);
    return tile;
}

class VtkContender : public Contender, private QObject {
public:
    VtkContender()
    {
        m_widget = new QVTKOpenGLNativeWidget(&m_window);
        m_window.setCentralWidget(m_widget);
        m_widget->setFocusPolicy(Qt::StrongFocus);
        m_widget->setRenderWindow(m_renderWindow);
        m_renderWindow->AddRenderer(m_renderer);
        m_widget->interactor()->SetInteractorStyle(nullptr);
        observe(*m_widget->interactor(), vtkCommand::MouseMoveEvent, m_moveHeard, &VtkContender::moveHeard);
        observe(*m_renderWindow, vtkCommand::AbortCheckEvent, m_abortAsked, &VtkContender::abortAsked);
        m_widget->installEventFilter(this);
    }

    const char* name() const override { return "VTK 9.1"; }
    QWidget& window() override { return m_window; }
    QWidget& inputWidget() override { return *m_widget; }
    long movesHeard() const override { return m_moves; }

    void setSurface(const Surface& surface) override
    {
        m_renderer->RemoveAllViewProps();
        for (int tile = 0; tile < TilesASide * TilesASide; ++tile) {
            vtkNew<vtkPolyDataMapper> mapper;
            mapper->SetInputData(tileOf(surface, tile % TilesASide, tile / TilesASide));
            const auto range = std::minmax_element(surface.heights.begin(), surface.heights.end());
            mapper->SetScalarRange(*range.first, *range.second);
            vtkNew<vtkActor> actor;
            actor->SetMapper(mapper);
            m_renderer->AddActor(actor);
        }
        m_renderer->ResetCamera();
    }

    bool exportPng(int side, const QString& file, std::size_t) override
    {
        vtkNew<vtkRenderWindow> offscreen;
        offscreen->SetOffScreenRendering(1);
        offscreen->SetSize(side, side);
        vtkNew<vtkRenderer> renderer;
        offscreen->AddRenderer(renderer);
        vtkPropCollection* const props = m_renderer->GetViewProps();
        props->InitTraversal();
        while (vtkProp* const prop = props->GetNextProp()) {
            vtkNew<vtkActor> actor;
            vtkNew<vtkPolyDataMapper> mapper;
            vtkMapper* const shown = vtkActor::SafeDownCast(prop)->GetMapper();
            mapper->SetInputDataObject(shown->GetInputDataObject(0, 0));
            mapper->SetScalarRange(shown->GetScalarRange());
            actor->SetMapper(mapper);
            renderer->AddActor(actor);
        }
        renderer->ResetCamera();
        offscreen->Render();
        vtkNew<vtkWindowToImageFilter> reader;
        reader->SetInput(offscreen);
        reader->ReadFrontBufferOff();
        vtkNew<vtkPNGWriter> writer;
        writer->SetInputConnection(reader->GetOutputPort());
        writer->SetFileName(file.toLocal8Bit().constData());
        writer->Write();
        return writer->GetErrorCode() == 0;
    }

    bool draw() override
    {
        m_escape = false;
        m_drawing = true;
        m_renderWindow->Render();
        m_renderWindow->WaitForCompletion();
        m_drawing = false;
        return !m_escape;
    }

private:
    using Handler = void (*)(vtkObject*, unsigned long, void*, void*);

    void observe(vtkObject& subject, unsigned long event, vtkCallbackCommand* command, Handler handler)
    {
        command->SetClientData(this);
        command->SetCallback(handler);
        subject.AddObserver(event, command);
    }

    static void moveHeard(vtkObject*, unsigned long, void* self, void*) { ++static_cast<VtkContender*>(self)->m_moves; }

    static void abortAsked(vtkObject*, unsigned long, void* self, void*)
    {
        VtkContender& contender = *static_cast<VtkContender*>(self);
        if (!contender.m_drawing)
            return;
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        if (contender.m_escape)
            contender.m_renderWindow->SetAbortRender(1);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            m_escape = true;
        // A repaint from inside the drawing would begin it again.
        return m_drawing && event->type() == QEvent::Paint;
    }

    QMainWindow m_window;
    QVTKOpenGLNativeWidget* m_widget = nullptr;
    vtkNew<vtkGenericOpenGLRenderWindow> m_renderWindow;
    vtkNew<vtkRenderer> m_renderer;
    vtkNew<vtkCallbackCommand> m_moveHeard;
    vtkNew<vtkCallbackCommand> m_abortAsked;
    long m_moves = 0;
    bool m_drawing = false;
    bool m_escape = false;
};

} // namespace

std::unique_ptr<Contender> makeContender(int, char**)
{
    return std::make_unique<VtkContender>();
}

} // namespace velmora::benchmark
