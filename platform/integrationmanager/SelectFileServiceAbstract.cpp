#include "integrationmanager/SelectFileServiceAbstract.h"

#include "engine/VelEng.h"
#include "integrationmanager/CurrentService.h"
#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/OpenDialog.h"
#include "testing/EngineProbe.h"

#include <string>

namespace velmora::sdk::integration::services {

namespace {

intern::CurrentService<SelectFileServiceAbstract> current("file selection");

using SetResult = void (*)(const char* name, void* result);

int onDisplayFileDialog(int option, const char* text1, const char* text2, const char* text3, SetResult setResult,
                        void* result, long /*clientData*/)
{
    return current.ask(0, [&](SelectFileServiceAbstract& service) {
        const intern::OpenDialog dialog;
        std::string name;
        if (!service.displayFileDialog(static_cast<SelectFileOption_e>(option), text1, text2, text3, name))
            return 0;
        setResult(name.c_str(), result);
        return 1;
    });
}

} // namespace

SelectFileServiceAbstract::SelectFileServiceAbstract()
{
    velmora::testing::EngineProbe::passPoint("SelectFileServiceAbstract");
}

SelectFileServiceAbstract::~SelectFileServiceAbstract()
{
    current.forget(*this);
    intern::noteDestruction("SelectFileServiceAbstract");
}

void SelectFileServiceAbstract::registerCallbacks()
{
    VelEngSelectFileRegisterCallback(&onDisplayFileDialog, 0);
}

void SelectFileServiceAbstract::makeCurrent()
{
    current.set(*this);
}

} // namespace velmora::sdk::integration::services
