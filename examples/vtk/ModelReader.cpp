#include "ModelReader.h"

#include "CoarseModel.h"
#include "ModelContent.h"
#include "ModelPieces.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <type_traits>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCommand.h>
#include <vtkExecutive.h>
#include <vtkGeometryFilter.h>
#include <vtkNew.h>
#include <vtkPLYReader.h>
#include <vtkPointData.h>
#include <vtkSTLReader.h>
#include <vtkUnstructuredGrid.h>
#include <vtkXMLPolyDataReader.h>
#include <vtkXMLUnstructuredGridReader.h>

namespace velmora::model {
namespace {

using content::Checkpoint;

/// Takes what VTK has to say against a file, which would go to the standard error.
class Complaints final : public vtkCommand {
public:
    static Complaints* New() { return new Complaints; }
    void Execute(vtkObject*, unsigned long event, void* text) override
    {
        m_hasError = m_hasError || event == vtkCommand::ErrorEvent;
        if (m_first.empty())
            m_first = static_cast<const char*>(text);
    }
    void listenTo(vtkObject& object)
    {
        object.AddObserver(vtkCommand::ErrorEvent, this);
        object.AddObserver(vtkCommand::WarningEvent, this);
    }
    /// A warning alone leaves the data as they are.
    bool hasError() const { return m_hasError; }
    /// The first without the place in VTK's sources; empty without any.
    std::string first() const
    {
        const std::size_t place = m_first.find("): ");
        std::string text = m_first.substr(place == std::string::npos ? 0 : place + 3);
        text = text.substr(0, text.find('\n'));
        while (!text.empty() && (text.back() == '.' || text.back() == ' '))
            text.pop_back();
        return text;
    }

private:
    std::string m_first;
    bool m_hasError = false;
};

/// Asks the checkpoint as often as VTK tells how far it is, and ends VTK's work when that says no.
class Progress final : public vtkCommand {
public:
    static Progress* New() { return new Progress; }
    void Execute(vtkObject* caller, unsigned long, void* fraction) override
    {
        auto* const algorithm = vtkAlgorithm::SafeDownCast(caller);
        if (!algorithm || isStopped)
            return;
        const double done = std::clamp(*static_cast<double*>(fraction), 0.0, 1.0);
        if (checkpoint->goOn(from + (to - from) * done))
            return;
        isStopped = true;
        algorithm->SetAbortExecute(1);
    }
    Checkpoint* checkpoint = nullptr;
    double from = 0;
    double to = 1;
    bool isStopped = false;
};

/// Lets VTK do a step of the reading.
void run(vtkAlgorithm& algorithm, Checkpoint& checkpoint, double from, double to)
{
    vtkNew<Progress> progress;
    progress->checkpoint = &checkpoint;
    progress->from = from;
    progress->to = to;
    algorithm.AddObserver(vtkCommand::ProgressEvent, progress);
    algorithm.Update();
    algorithm.RemoveObserver(progress);
    if (progress->isStopped || !checkpoint.goOn(to))
        throw content::Interrupted();
}

constexpr double ShareOfTheFile = 0.6; ///< of the reading
constexpr double ShareBeforeCutting = 0.75;

[[noreturn]] void fail(const std::string& fileName, const std::string& why)
{
    throw std::runtime_error(fileName + " cannot be read: " + why);
}

/// Reads the file with a reader of VTK's.
template <typename VtkReader>
vtkSmartPointer<typename std::remove_pointer<decltype(VtkReader::New()->GetOutput())>::type>
readWith(const std::string& fileName, const char* format, Checkpoint& checkpoint)
{
    const auto reader = vtkSmartPointer<VtkReader>::New();
    vtkNew<Complaints> complaints;
    complaints->listenTo(*reader);
    complaints->listenTo(*reader->GetExecutive());
    if constexpr (std::is_base_of_v<vtkXMLReader, VtkReader>)
        reader->SetParserErrorObserver(complaints);
    reader->SetFileName(fileName.c_str());
    run(*reader, checkpoint, 0, ShareOfTheFile);
    const std::string complaint = complaints->first();
    if (complaints->hasError() || reader->GetErrorCode() != 0)
        fail(fileName, (complaint.empty() ? "it is damaged" : complaint) + ". Give a complete " + format + " file.");
    return reader->GetOutput();
}

/// What can be seen of a grid from outside.
vtkSmartPointer<vtkPolyData> surfaceOf(vtkUnstructuredGrid& grid, Checkpoint& checkpoint)
{
    vtkNew<vtkGeometryFilter> filter;
    filter->SetInputData(&grid);
    filter->PassThroughCellIdsOn();
    run(*filter, checkpoint, ShareOfTheFile, ShareBeforeCutting);
    return filter->GetOutput();
}

struct Data {
    std::string kind;
    vtkSmartPointer<vtkPolyData> surface;
    vtkSmartPointer<vtkUnstructuredGrid> grid; ///< that it is the surface of, or null
};

Data readGrid(const std::string& fileName, Checkpoint& checkpoint)
{
    const auto grid = readWith<vtkXMLUnstructuredGridReader>(fileName, "VTK unstructured grid", checkpoint);
    return {"unstructured grid", surfaceOf(*grid, checkpoint), grid};
}

Data readData(const std::string& fileName, const std::string& ending, Checkpoint& checkpoint)
{
    if (ending == "vtu")
        return readGrid(fileName, checkpoint);
    if (ending == "vtp")
        return {"poly data", readWith<vtkXMLPolyDataReader>(fileName, "VTK poly data", checkpoint), nullptr};
    if (ending == "stl")
        return {"STL model", readWith<vtkSTLReader>(fileName, "STL", checkpoint), nullptr};
    return {"PLY model", readWith<vtkPLYReader>(fileName, "PLY", checkpoint), nullptr};
}

/// A cloud of points has no cells; each point is one then.
void showLonePoints(vtkPolyData& surface)
{
    if (surface.GetNumberOfCells() > 0)
        return;
    vtkNew<vtkCellArray> verts;
    for (vtkIdType point = 0; point < surface.GetNumberOfPoints(); ++point)
        verts->InsertNextCell(1, &point);
    surface.SetVerts(verts);
}

std::string endingOf(const std::string& fileName)
{
    const std::size_t dot = fileName.rfind('.');
    std::string ending = dot == std::string::npos ? "" : fileName.substr(dot + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return std::tolower(letter); });
    return ending;
}

void requireFile(const std::string& fileName)
{
    const std::ifstream file(fileName, std::ios::binary);
    if (!file)
        fail(fileName, std::string(std::strerror(errno)) + ". Give a file that is there and may be read.");
}

void requireFinitePoints(const std::string& fileName, vtkPolyData& surface, Checkpoint& checkpoint)
{
    constexpr vtkIdType Portion = 50000;
    for (vtkIdType i = 0; i < surface.GetNumberOfPoints(); ++i) {
        const double* const point = surface.GetPoint(i);
        if (!std::isfinite(point[0] + point[1] + point[2]))
            fail(fileName,
                 "point " + std::to_string(i) + " is nowhere. Write the file anew with a number for each coordinate.");
        if (i % Portion == Portion - 1 && !checkpoint.goOn(ShareBeforeCutting))
            throw content::Interrupted();
    }
}

std::shared_ptr<Model> modelOf(const std::string& fileName, Data data, Checkpoint& checkpoint)
{
    vtkPolyData& surface = *data.surface;
    if (surface.GetNumberOfPoints() == 0)
        fail(fileName, "it has no points. Give a file with a model in it.");
    requireFinitePoints(fileName, surface, checkpoint);
    showLonePoints(surface);
    const double* const bounds = surface.GetBounds();
    auto model = std::make_shared<Model>();
    model->kind = data.kind;
    model->points = data.grid ? data.grid->GetNumberOfPoints() : surface.GetNumberOfPoints();
    model->cells = data.grid ? data.grid->GetNumberOfCells() : surface.GetNumberOfCells();
    model->shownCells = surface.GetNumberOfCells();
    model->bounds = {{bounds[0], bounds[2], bounds[4]}, {bounds[1], bounds[3], bounds[5]}};
    if (data.grid) {
        model->cellNumbers = surface.GetCellData()->GetArray("vtkOriginalCellIds");
        model->notes = "The grid is shown from outside, by " + std::to_string(model->shownCells) + " faces.";
    }
    describeArrays(surface, *model);
    cutIntoPieces(surface, *model, checkpoint);
    makeCoarse(*model, checkpoint);
    return model;
}

} // namespace

bool ModelReader::recognises(const std::string& fileName, const std::string&) const
{
    const std::string ending = endingOf(fileName);
    return ending == "vtp" || ending == "vtu" || ending == "stl" || ending == "ply";
}

std::shared_ptr<content::Content> ModelReader::read(const std::string& fileName, content::Checkpoint& checkpoint)
{
    requireFile(fileName);
    return std::make_shared<ModelContent>(
        modelOf(fileName, readData(fileName, endingOf(fileName), checkpoint), checkpoint));
}

} // namespace velmora::model
