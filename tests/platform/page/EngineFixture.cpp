#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/api/VelArgList.h"
#include "engine/api/VelStyle.h"
#include "testing/EngineProbe.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace velmora::test {
namespace {

EngineFixture* self(long clientData)
{
    return reinterpret_cast<EngineFixture*>(clientData);
}

std::string newFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "velmora-page-XXXXXX").string();
    return mkdtemp(pattern.data());
}

/// An argument list that names a style path.
class PathArguments {
public:
    explicit PathArguments(const std::vector<std::string>& words) : m_list(VelArgListCreate())
    {
        for (std::size_t i = 0; i < words.size(); ++i)
            VelArgListAppendString(m_list, ("Word" + std::to_string(i + 1)).c_str(), words[i].c_str());
    }
    ~PathArguments() { VelArgListDestroy(m_list); }
    PathArguments(const PathArguments&) = delete;
    PathArguments& operator=(const PathArguments&) = delete;
    VelArgList* list() const { return m_list; }

private:
    VelArgList* m_list;
};

} // namespace

EngineFixture::EngineFixture() : m_folder(newFolder())
{
    testing::EngineProbe::reset();
    VelEngStart("", "page tests");
    registerCallbacks();
}

EngineFixture::~EngineFixture()
{
    VelEngStop();
    VelEngProcessWhileBusyRegisterCallback(nullptr, 0);
    VelEngEngineNotBusyRegisterCallback(nullptr, 0);
    VelEngTurnRequestedRegisterCallback(nullptr, 0);
    VelEngProgressRegisterCallback(nullptr, 0);
    testing::EngineProbe::reset();
    std::filesystem::remove_all(m_folder);
}

void EngineFixture::registerCallbacks()
{
    const long data = reinterpret_cast<long>(this);
    VelEngProcessWhileBusyRegisterCallback(turn, data);
    VelEngEngineNotBusyRegisterCallback(notBusy, data);
    VelEngTurnRequestedRegisterCallback(turnRequested, data);
    VelEngProgressRegisterCallback(heardProgress, data);
}

int EngineFixture::turn(long clientData)
{
    ++self(clientData)->turns;
    self(clientData)->busyInTurns += VelUtilIsBusy();
    // A copy: it may give itself another one.
    const std::function<int()> act = self(clientData)->inTurn;
    return act();
}

void EngineFixture::notBusy(long clientData)
{
    ++self(clientData)->notBusyCalls;
    self(clientData)->busyWhenTold += VelUtilIsBusy();
    self(clientData)->whenNotBusy();
}

void EngineFixture::turnRequested(long clientData)
{
    ++self(clientData)->turnWishes;
}

void EngineFixture::heardProgress(const char*, double fraction, long clientData)
{
    self(clientData)->progress.push_back(fraction);
}

std::string EngineFixture::write(const std::string& name, const std::string& content)
{
    const std::string path = m_folder + "/" + name;
    std::ofstream(path) << content;
    return path;
}

std::string EngineFixture::tableFile()
{
    std::string text = "x,a,b\n";
    for (int i = 0; i < 400; ++i)
        text += std::to_string(i) + "," + std::to_string(i % 37) + "," + std::to_string(40 - i % 23) + "\n";
    return write("lines.csv", text);
}

namespace {

std::string gridText(int size, int (*height)(int column, int row))
{
    const std::string side = std::to_string(size);
    std::string text = "ncols " + side + "\nnrows " + side + "\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    for (int row = 0; row < size; ++row)
        for (int column = 0; column < size; ++column)
            text += std::to_string(height(column, row)) + (column == size - 1 ? "\n" : " ");
    return text;
}

} // namespace

std::string EngineFixture::gridFile()
{
    return write("heights.asc", gridText(120, [](int column, int row) { return (row * column) % 60; }));
}

std::string EngineFixture::hillFile()
{
    return write("hill.asc", gridText(120, [](int column, int row) {
                     return 3600 - (column - 60) * (column - 60) / 2 - (row - 60) * (row - 60) / 2;
                 }));
}

void EngineFixture::load(const std::string& fileName)
{
    ASSERT_EQ(VelUtilDataLoad(fileName.c_str()), 1) << VelUtilLastErrorMessage();
}

void EngineFixture::slowDown()
{
    setStyle({"Interface", "DrawingDelay"}, 2000);
}

void EngineFixture::setStyle(const std::vector<std::string>& words, double value)
{
    const PathArguments path(words);
    VelArgListAppendArbParam(path.list(), "IValue", static_cast<long>(value));
    VelArgListAppendDouble(path.list(), "DValue", value);
    VelStyleSetLowLevel(path.list());
}

double EngineFixture::style(const std::vector<std::string>& words)
{
    const PathArguments path(words);
    long whole = 0;
    double number = 0;
    VelArgListAppendArbParamPtr(path.list(), "IValue", &whole);
    VelArgListAppendDoublePtr(path.list(), "DValue", &number);
    VelStyleGetLowLevel(path.list());
    return whole != 0 ? static_cast<double>(whole) : number;
}

int EngineFixture::show(FakeArea& area)
{
    area.page = VelEngPageAttachDrawArea(&area, nullptr);
    VelEngPageExpose(area.page, 1);
    return area.page;
}

int EngineFixture::turnUntilDone()
{
    int count = 0;
    while (count < 100 && VelEngTurn() == 1)
        ++count;
    return count;
}

} // namespace velmora::test
