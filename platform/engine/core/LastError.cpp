#include "engine/core/LastError.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <exception>
#include <utility>

namespace velmora::engine {
namespace {

std::string& lastError()
{
    static std::string text;
    return text;
}

std::string& loadNotes()
{
    static std::string text;
    return text;
}

} // namespace

// Without memory for the text the message before it stays.
void setLastError(const std::string& message) noexcept
{
    try {
        lastError() = message;
    } catch (const std::exception&) {
    }
}

void setLastErrorFromException(const std::string& whatFailed) noexcept
{
    try {
        throw;
    } catch (const std::exception& error) {
        setLastError(whatFailed + ": " + error.what());
    } catch (...) {
        setLastError(whatFailed + " for an unknown reason.");
    }
}

void clearLastError()
{
    lastError().clear();
}

void setLoadNotes(std::string notes)
{
    loadNotes() = std::move(notes);
}

} // namespace velmora::engine

using velmora::testing::EngineProbe;

const char* VelUtilLastErrorMessage()
{
    return velmora::engine::lastError().c_str();
}

void VelUtilLastErrorMessageClear()
{
    if (EngineProbe::isLogging())
        EngineProbe::note("VelUtilLastErrorMessageClear");
    velmora::engine::clearLastError();
}

bool VelUtilDialogLastMessageBox()
{
    if (EngineProbe::isLogging())
        EngineProbe::note("VelUtilDialogLastMessageBox");
    // A copy: while the box is open, the application may cause the next error.
    const std::string message = velmora::engine::lastError();
    if (message.empty())
        return false;
    VelEngMessageBoxShow(message.c_str(), velmora::sdk::integration::MessageBoxType_Error);
    return true;
}

const char* VelUtilLastLoadNotes()
{
    return velmora::engine::loadNotes().c_str();
}
