// What the engine asks of the services on behalf of a host. Each answers as if there were no
// service when none is registered.

#include "engine/VelEng.h"
#include "engine/core/Callbacks.h"
#include "engine/page/Pages.h"

#include <algorithm>
#include <cstring>
#include <string>

using velmora::engine::callbacks;

namespace {

void keepText(const char* text, void* result)
{
    *static_cast<std::string*>(result) = text ? text : "";
}

} // namespace

unsigned VelEngMessageBoxShow(const char* message, int type)
{
    if (!callbacks().messageBox)
        return velmora::sdk::integration::MessageBoxReply_Error;
    return callbacks().messageBox(message, type);
}

int VelEngSelectFile(int option, const char* title, const char* offered, const char* filter, char* buffer, int size)
{
    std::string name;
    if (!buffer || size < 1 || callbacks().selectFile(option, title, offered, filter, keepText, &name) != 1)
        return 0;
    const std::size_t length = std::min(name.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, name.data(), length);
    buffer[length] = '\0';
    return 1;
}

void VelEngWaitCursorActivate(int on)
{
    callbacks().waitCursor(on);
}

void VelEngBaseCursorSet(int style)
{
    callbacks().baseCursor(velmora::engine::pages().activeInterface(), style);
}

void VelEngSelectRegion(double x1, double y1, double x2, double y2, int addToSelection)
{
    callbacks().selectRegion(x1, y1, x2, y2, addToSelection);
}

const char* VelEngOpenGLVersion()
{
    static std::string version;
    version.clear();
    if (callbacks().misc.openGLVersionString)
        callbacks().misc.openGLVersionString(keepText, &version, callbacks().miscClientData);
    return version.c_str();
}
