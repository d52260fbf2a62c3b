#include "integrationmanager/ManagerMiscServiceAbstract.h"

#include "engine/VelEng.h"
#include "integrationmanager/CurrentService.h"
#include "integrationmanager/DestructionNote.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::services {

namespace {

intern::CurrentService<ManagerMiscServiceAbstract> current("misc");

using SetText = void (*)(const char* text, void* result);

int onTranslateNonPrintableKeyboardCode(int qtKey, long /*clientData*/)
{
    return current.ask(0, [qtKey](const ManagerMiscServiceAbstract& service) {
        return service.translateNonPrintableKeyboardCode(qtKey);
    });
}

void onGetDotPitchPerCm(double* x, double* y, long /*clientData*/)
{
    current.call([x, y](const ManagerMiscServiceAbstract& service) { service.getDotPitchPerCm(x, y); });
}

void onGetScreenSizeInPixels(int* width, int* height, long /*clientData*/)
{
    current.call(
        [width, height](const ManagerMiscServiceAbstract& service) { service.getScreenSizeInPixels(width, height); });
}

int onKeyboardModifiers(long /*clientData*/)
{
    return current.ask(0, [](const ManagerMiscServiceAbstract& service) { return service.keyboardModifiers(); });
}

int onMouseButtonState(int button, long /*clientData*/)
{
    return current.ask(0, [button](const ManagerMiscServiceAbstract& service) {
        return service.mouseButtonState(static_cast<MouseEventInterface::MouseButton_e>(button)) ? 1 : 0;
    });
}

void onOpenGLVersionString(SetText setResult, void* result, long /*clientData*/)
{
    current.call([setResult, result](const ManagerMiscServiceAbstract& service) {
        setResult(service.openGLVersionString().c_str(), result);
    });
}

constexpr VelEngMiscCallbacks Callbacks = {&onTranslateNonPrintableKeyboardCode,
                                           &onGetDotPitchPerCm,
                                           &onGetScreenSizeInPixels,
                                           &onKeyboardModifiers,
                                           &onMouseButtonState,
                                           &onOpenGLVersionString};

} // namespace

ManagerMiscServiceAbstract::ManagerMiscServiceAbstract()
{
    velmora::testing::EngineProbe::passPoint("ManagerMiscServiceAbstract");
}

ManagerMiscServiceAbstract::~ManagerMiscServiceAbstract()
{
    current.forget(*this);
    intern::noteDestruction("ManagerMiscServiceAbstract");
}

void ManagerMiscServiceAbstract::registerCallbacks()
{
    VelEngMiscRegisterCallbacks(&Callbacks, 0);
}

void ManagerMiscServiceAbstract::makeCurrent()
{
    current.set(*this);
}

} // namespace velmora::sdk::integration::services
