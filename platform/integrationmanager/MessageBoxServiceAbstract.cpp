#include "integrationmanager/MessageBoxServiceAbstract.h"

#include "engine/VelEng.h"
#include "integrationmanager/CurrentService.h"
#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/OpenDialog.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::services {

namespace {

intern::CurrentService<MessageBoxServiceAbstract> current("message box");

unsigned onDisplayMessageBox(const char* message, int type, long /*clientData*/)
{
    return current.ask<unsigned>(MessageBoxReply_Error, [message, type](MessageBoxServiceAbstract& service) {
        const intern::OpenDialog dialog;
        return service.displayMessageBox(message, static_cast<MessageBoxType_e>(type));
    });
}

} // namespace

MessageBoxServiceAbstract::MessageBoxServiceAbstract()
{
    velmora::testing::EngineProbe::passPoint("MessageBoxServiceAbstract");
}

MessageBoxServiceAbstract::~MessageBoxServiceAbstract()
{
    current.forget(*this);
    intern::noteDestruction("MessageBoxServiceAbstract");
}

void MessageBoxServiceAbstract::registerCallbacks()
{
    VelEngMessageBoxRegisterCallback(&onDisplayMessageBox, 0);
}

void MessageBoxServiceAbstract::makeCurrent()
{
    current.set(*this);
}

} // namespace velmora::sdk::integration::services
