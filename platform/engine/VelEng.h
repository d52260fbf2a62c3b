#pragma once

/// \file
/// The engine's entry points for the binding: what the integration-manager library and the
/// off-screen images call. GUI thread only. The engine calls every callback on that thread, with
/// the client data it was registered with; registering null takes a callback away.

#include "engine/VelExport.h"
#include "interfaces/EngineEnumerations.h"

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawAreaInterface;
class OffscreenImageInterface;
class PageInterface;
} // namespace integration
} // namespace sdk
} // namespace velmora

extern "C" {

// ---- life

/// Starts the engine: style defaults, one empty page. 0 when it runs already. This engine has no files
/// of its own and names no host, so both arguments may be anything, also null.
VELMORA_PLATFORM_EXPORT int VelEngStart(const char* homeDirectory, const char* applicationName);
/// Stops it: pages, data and style are given up. Callbacks stay registered. Areas must be detached.
VELMORA_PLATFORM_EXPORT void VelEngStop();
/// 1 between VelEngStart and VelEngStop.
VELMORA_PLATFORM_EXPORT int VelEngIsRunning();

// ---- being busy

/// The function that the engine calls each time it stops being busy.
VELMORA_PLATFORM_EXPORT void VelEngEngineNotBusyRegisterCallback(void (*callback)(long clientData), long clientData);
/// The function that gives the application its turn between two slices of engine work. It returns
/// 1 when the engine shall stop, 0 when it shall go on.
VELMORA_PLATFORM_EXPORT void VelEngProcessWhileBusyRegisterCallback(int (*callback)(long clientData), long clientData);
/// The function that hears how far the work is: what is done in a few words, and 0 to 1.
VELMORA_PLATFORM_EXPORT void
VelEngProgressRegisterCallback(void (*callback)(const char* what, double fraction, long clientData), long clientData);
/// Gives the engine a turn of its own: shows a coarse picture of each page that changed, at once, and then
/// refines them. The engine is not busy while it refines: between two slices it gives the application its turn
/// through the process-while-busy callback, and what comes there comes as if the engine had nothing to do; a
/// change of a page ends its refinement, and the page waits for the next turn. Returns 1 when there was
/// anything to do. Does nothing when the engine is busy, or refines already further down the call stack.
VELMORA_PLATFORM_EXPORT int VelEngTurn();
/// The function that the engine calls when work begins to wait for a turn.
VELMORA_PLATFORM_EXPORT void VelEngTurnRequestedRegisterCallback(void (*callback)(long clientData), long clientData);

// ---- pages in drawing areas; a page number is above 0

/// Gives the area a page (the first without an area, else a new one) and makes it active.
VELMORA_PLATFORM_EXPORT int VelEngPageAttachDrawArea(velmora::sdk::integration::GLDrawAreaInterface* area,
                                                     velmora::sdk::integration::PageInterface* page);
/// Takes the area away from the page, whose content stays. The area's context must still work.
VELMORA_PLATFORM_EXPORT void VelEngPageDetachDrawArea(int pageNumber);
/// Shows in the area what there is of the page and leaves longer work waiting.
VELMORA_PLATFORM_EXPORT void VelEngPageExpose(int pageNumber, int sizeChanged);
/// Makes it the page that commands without a page apply to.
VELMORA_PLATFORM_EXPORT void VelEngPageActivate(int pageNumber);
/// The active page's number; 0 while the engine does not run.
VELMORA_PLATFORM_EXPORT int VelEngPageGetActive();

// ---- off-screen

/// Draws the region into the current export's image, through the image's own GL context; 1 when
/// done, 0 when it failed or was cancelled.
VELMORA_PLATFORM_EXPORT int VelEngRenderOffscreenImage(velmora::sdk::integration::ExportRegion_e region,
                                                       velmora::sdk::integration::OffscreenImageInterface* image);

// ---- services

/// Shows a message; a MessageBoxType_e value goes in and a MessageBoxReply_e value comes back.
VELMORA_PLATFORM_EXPORT void
VelEngMessageBoxRegisterCallback(unsigned (*callback)(const char* message, int type, long clientData), long clientData);
/// The callback copies the chosen name through `setResult` and returns 1, or returns 0.
VELMORA_PLATFORM_EXPORT void VelEngSelectFileRegisterCallback(
    int (*callback)(int option, const char* text1, const char* text2, const char* text3,
                    void (*setResult)(const char* name, void* result), void* result, long clientData),
    long clientData);
/// Pushes the wait cursor (1) or pops a cursor (0).
VELMORA_PLATFORM_EXPORT void VelEngWaitCursorRegisterCallback(void (*callback)(int on, long clientData),
                                                              long clientData);
/// Sets the cursor over the page's drawing area, a CursorStyle_e value.
VELMORA_PLATFORM_EXPORT void VelEngBaseCursorRegisterCallback(
    void (*callback)(velmora::sdk::integration::PageInterface* page, int style, long clientData), long clientData);
/// Selects in a rectangle of paper inches; see VelUtilPickAddAllInRectX().
VELMORA_PLATFORM_EXPORT void VelEngSelectRegionRegisterCallback(
    void (*callback)(double x1, double y1, double x2, double y2, int addToSelection, long clientData), long clientData);

/// What the engine asks about screen, keyboard, mouse and OpenGL.
struct VelEngMiscCallbacks {
    /// @{
    /// See the operation of that name of services::ManagerMiscServiceInterface.
    int (*translateNonPrintableKeyboardCode)(int qtKey, long clientData);
    void (*getDotPitchPerCm)(double* x, double* y, long clientData);
    void (*getScreenSizeInPixels)(int* width, int* height, long clientData);
    int (*keyboardModifiers)(long clientData);
    int (*mouseButtonState)(int button, long clientData);
    void (*openGLVersionString)(void (*setResult)(const char* text, void* result), void* result, long clientData);
    /// @}
};
/// Copies the functions; null takes them all away.
VELMORA_PLATFORM_EXPORT void VelEngMiscRegisterCallbacks(const VelEngMiscCallbacks* callbacks, long clientData);

/// How the engine gets, reads and gives back an off-screen image. `imageCreate` may throw
/// velmora::ExceptionBase.
struct VelEngOffscreenImageCallbacks {
    /// @{
    /// See the operation of that name of services::OffscreenImageServiceInterface.
    velmora::sdk::integration::OffscreenImageInterface* (*imageCreate)(int width, int height, int strategy,
                                                                       long clientData);
    int (*imageGetRGBRow)(velmora::sdk::integration::OffscreenImageInterface* image, int row, unsigned char* red,
                          unsigned char* green, unsigned char* blue, long clientData);
    void (*imageDestroy)(velmora::sdk::integration::OffscreenImageInterface* image, long clientData);
    /// @}
};
/// Copies the functions; null takes them all away.
VELMORA_PLATFORM_EXPORT void VelEngOffscreenImageRegisterCallbacks(const VelEngOffscreenImageCallbacks* callbacks,
                                                                   long clientData);

// ---- what the engine asks of the services on behalf of a host; each answers as if there were no
// ---- service (0, "", reply 255) when none is registered

/// The reply code of the message box service.
VELMORA_PLATFORM_EXPORT unsigned VelEngMessageBoxShow(const char* message, int type);
/// 1 when a file was chosen; its name is then in `buffer`, cut off at `size` - 1 bytes.
VELMORA_PLATFORM_EXPORT int VelEngSelectFile(int option, const char* title, const char* offered, const char* filter,
                                             char* buffer, int size);
/// Pushes the wait cursor (1) or pops a cursor (0).
VELMORA_PLATFORM_EXPORT void VelEngWaitCursorActivate(int on);
/// The cursor over the active page's drawing area, a CursorStyle_e value.
VELMORA_PLATFORM_EXPORT void VelEngBaseCursorSet(int style);
/// Selects in a rectangle of paper inches, through the region selection service.
VELMORA_PLATFORM_EXPORT void VelEngSelectRegion(double x1, double y1, double x2, double y2, int addToSelection);
/// The OpenGL version of the screen. Valid until the next call.
VELMORA_PLATFORM_EXPORT const char* VelEngOpenGLVersion();

// ---- assertion

/// Reports a broken precondition: prints kind, condition, message and function on standard error
/// and ends the process, unless a handler is set.
VELMORA_PLATFORM_EXPORT void VelEngDoVUAssert(const char* kind, const char* condition, const char* message,
                                              const char* function);
/// Sets the function that hears of broken preconditions instead; null sets the default back.
VELMORA_PLATFORM_EXPORT void VelEngSetVUAssertHandler(void (*handler)(const char* kind, const char* condition,
                                                                      const char* message, const char* function));

} // extern "C"
