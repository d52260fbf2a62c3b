#include "integrationmanager/CursorShapeServiceAbstract.h"

#include "engine/VelEng.h"
#include "integrationmanager/CurrentService.h"
#include "integrationmanager/DestructionNote.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::services {

namespace {

intern::CurrentService<CursorShapeServiceAbstract> current("cursor shape");

void onActivateWaitCursor(int on, long /*clientData*/)
{
    current.call([on](CursorShapeServiceAbstract& service) { service.activateWaitCursor(on != 0); });
}

void onSetBaseCursorStyle(PageInterface* page, int style, long /*clientData*/)
{
    current.call([page, style](CursorShapeServiceAbstract& service) {
        service.setBaseCursorStyle(page, static_cast<CursorStyle_e>(style));
    });
}

} // namespace

CursorShapeServiceAbstract::CursorShapeServiceAbstract()
{
    velmora::testing::EngineProbe::passPoint("CursorShapeServiceAbstract");
}

CursorShapeServiceAbstract::~CursorShapeServiceAbstract()
{
    current.forget(*this);
    intern::noteDestruction("CursorShapeServiceAbstract");
}

void CursorShapeServiceAbstract::registerCallbacks()
{
    VelEngWaitCursorRegisterCallback(&onActivateWaitCursor, 0);
    VelEngBaseCursorRegisterCallback(&onSetBaseCursorStyle, 0);
}

void CursorShapeServiceAbstract::makeCurrent()
{
    current.set(*this);
}

} // namespace velmora::sdk::integration::services
