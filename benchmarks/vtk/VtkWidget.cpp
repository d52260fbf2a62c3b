#include "benchmarks/vtk/VtkWidget.h"

#include <QVTKOpenGLNativeWidget.h>
#include <cmath>
#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>
#include <vtkXMLPolyDataReader.h>
#include <vtkXMLPolyDataWriter.h>

namespace velmora::benchmark {
namespace {

vtkNew<vtkPolyData> hills(int side)
{
    vtkNew<vtkPoints> points;
    vtkNew<vtkFloatArray> heights;
    heights->SetName("height");
    vtkNew<vtkCellArray> triangles;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const double east = 10.0 * x / side;
            const double north = 10.0 * y / side;
            const double height = std::sin(east) * std::cos(north) + 0.05 * std::sin(9 * east) * std::sin(11 * north);
            points->InsertNextPoint(east, north, height);
            heights->InsertNextValue(static_cast<float>(height));
        }
    for (vtkIdType y = 0; y + 1 < side; ++y)
        for (vtkIdType x = 0; x + 1 < side; ++x) {
            const vtkIdType corner = y * side + x;
            triangles->InsertNextCell({corner, corner + 1, corner + side + 1});
            triangles->InsertNextCell({corner, corner + side + 1, corner + side});
        }
    vtkNew<vtkPolyData> model;
    model->SetPoints(points);
    model->SetPolys(triangles);
    model->GetPointData()->SetScalars(heights);
    return model;
}

} // namespace

struct VtkWidget::Objects {
    QMainWindow window;
    vtkNew<vtkGenericOpenGLRenderWindow> renderWindow;
    vtkNew<vtkRenderer> renderer;
};

void writeModel(const QString& fileName, int side)
{
    vtkNew<vtkXMLPolyDataWriter> writer;
    writer->SetInputData(hills(side));
    writer->SetFileName(fileName.toLocal8Bit().constData());
    writer->SetCompressorTypeToNone();
    if (!writer->Write())
        qFatal("%s cannot be written", qPrintable(fileName));
}

VtkWidget::VtkWidget(const QString& fileName) : m_objects(std::make_unique<Objects>())
{
    vtkNew<vtkXMLPolyDataReader> reader;
    reader->SetFileName(fileName.toLocal8Bit().constData());
    reader->Update();
    vtkNew<vtkPolyDataMapper> mapper;
    mapper->SetInputData(reader->GetOutput());
    mapper->SetScalarRange(reader->GetOutput()->GetScalarRange());
    vtkNew<vtkActor> actor;
    actor->SetMapper(mapper);
    m_objects->renderer->AddActor(actor);
    auto* const widget = new QVTKOpenGLNativeWidget(&m_objects->window); // the window's
    m_objects->window.setCentralWidget(widget);
    widget->setRenderWindow(m_objects->renderWindow);
    m_objects->renderWindow->AddRenderer(m_objects->renderer);
    m_objects->renderer->SetBackground(1, 1, 1);
    widget->interactor()->SetInteractorStyle(nullptr);
    // As the contents show a model at first: from the same side and, beside their legend, as large.
    vtkCamera& camera = *m_objects->renderer->GetActiveCamera();
    camera.SetPosition(0, -1, 0);
    camera.SetFocalPoint(0, 0, 0);
    camera.SetViewUp(0, 0, 1);
    camera.Azimuth(-28);
    camera.Elevation(25);
    m_objects->renderer->ResetCamera();
    camera.Zoom(0.92);
    m_objects->window.resize(1000, 700);
}

VtkWidget::~VtkWidget() = default;

QMainWindow& VtkWidget::window()
{
    return m_objects->window;
}

void VtkWidget::draw()
{
    m_objects->renderWindow->Render();
    m_objects->renderWindow->WaitForCompletion();
}

} // namespace velmora::benchmark
