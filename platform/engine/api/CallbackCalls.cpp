// What the binding registers.

#include "engine/VelEng.h"
#include "engine/core/Busy.h"
#include "engine/core/Callbacks.h"

using velmora::engine::callbacks;

void VelEngEngineNotBusyRegisterCallback(void (*callback)(long), long clientData)
{
    callbacks().notBusy.set(callback, clientData);
}

void VelEngProcessWhileBusyRegisterCallback(int (*callback)(long), long clientData)
{
    callbacks().processWhileBusy.set(callback, clientData);
}

void VelEngProgressRegisterCallback(void (*callback)(const char*, double, long), long clientData)
{
    callbacks().progress.set(callback, clientData);
}

void VelEngTurnRequestedRegisterCallback(void (*callback)(long), long clientData)
{
    callbacks().turnRequested.set(callback, clientData);
    // The receiver of the request before is gone: the next request has to be made to this one.
    velmora::engine::putOffTurn();
}

void VelEngMessageBoxRegisterCallback(unsigned (*callback)(const char*, int, long), long clientData)
{
    callbacks().messageBox.set(callback, clientData);
}

void VelEngSelectFileRegisterCallback(int (*callback)(int, const char*, const char*, const char*,
                                                      void (*)(const char*, void*), void*, long),
                                      long clientData)
{
    callbacks().selectFile.set(callback, clientData);
}

void VelEngWaitCursorRegisterCallback(void (*callback)(int, long), long clientData)
{
    callbacks().waitCursor.set(callback, clientData);
}

void VelEngBaseCursorRegisterCallback(void (*callback)(velmora::sdk::integration::PageInterface*, int, long),
                                      long clientData)
{
    callbacks().baseCursor.set(callback, clientData);
}

void VelEngSelectRegionRegisterCallback(void (*callback)(double, double, double, double, int, long), long clientData)
{
    callbacks().selectRegion.set(callback, clientData);
}

void VelEngMiscRegisterCallbacks(const VelEngMiscCallbacks* functions, long clientData)
{
    callbacks().misc = functions ? *functions : VelEngMiscCallbacks{};
    callbacks().miscClientData = clientData;
}

void VelEngOffscreenImageRegisterCallbacks(const VelEngOffscreenImageCallbacks* functions, long clientData)
{
    callbacks().offscreenImage = functions ? *functions : VelEngOffscreenImageCallbacks{};
    callbacks().offscreenImageClientData = clientData;
}
