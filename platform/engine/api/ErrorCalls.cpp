// What the engine has to tell of the last error and of the last load.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/core/LastError.h"
#include "engine/core/Trace.h"

using namespace velmora::engine;

const char* VelUtilLastErrorMessage()
{
    return lastError().c_str();
}

void VelUtilLastErrorMessageClear()
{
    traceCall("VelUtilLastErrorMessageClear");
    clearLastError();
}

bool VelUtilDialogLastMessageBox()
{
    traceCall("VelUtilDialogLastMessageBox");
    // A copy: while the box is open, the application may cause the next error.
    const std::string message = lastError();
    if (message.empty())
        return false;
    VelEngMessageBoxShow(message.c_str(), velmora::sdk::integration::MessageBoxType_Error);
    return true;
}

const char* VelUtilLastLoadNotes()
{
    return loadNotes().c_str();
}
