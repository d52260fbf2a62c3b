#pragma once

#include "Log.h"

#include "integrationmanager/CursorShapeServiceAbstract.h"
#include "integrationmanager/ManagerMiscServiceAbstract.h"
#include "integrationmanager/MessageBoxServiceAbstract.h"
#include "integrationmanager/OffscreenImageServiceAbstract.h"
#include "integrationmanager/SelectFileServiceAbstract.h"
#include "integrationmanager/SelectRegionServiceAbstract.h"

#include <functional>
#include <sstream>

namespace velmora::tests {

namespace services = sdk::integration::services;
using sdk::integration::CursorStyle_e;
using sdk::integration::ImageRenderingStrategy_e;
using sdk::integration::MessageBoxType_e;
using sdk::integration::OffscreenImageInterface;
using sdk::integration::PageInterface;
using sdk::integration::SelectFileOption_e;

/// Answers with `reply`, after `whileOpen`.
struct FakeMessageBoxService : public services::MessageBoxServiceAbstract {
    unsigned displayMessageBox(const char* message, MessageBoxType_e type) override
    {
        shown = std::string(message) + "/" + std::to_string(type);
        if (whileOpen)
            whileOpen();
        return reply;
    }
    unsigned reply = 2;
    std::string shown;
    std::function<void()> whileOpen;
};

struct FakeSelectFileService : public services::SelectFileServiceAbstract {
    bool displayFileDialog(SelectFileOption_e option, const char* text1, const char* text2, const char* text3,
                           std::string& result) override
    {
        asked = std::to_string(option) + "/" + text1 + "/" + (text2 != nullptr ? text2 : "none") + "/" + text3;
        if (whileOpen)
            whileOpen();
        result = chosen;
        return !chosen.empty();
    }
    std::string asked;
    std::string chosen;
    std::function<void()> whileOpen;
};

struct FakeCursorShapeService : public services::CursorShapeServiceAbstract {
    void activateWaitCursor(bool on) override { log.push_back(on ? "wait" : "no wait"); }
    void setBaseCursorStyle(PageInterface*, CursorStyle_e style) override
    {
        log.push_back("style " + std::to_string(style));
    }
    Log log;
};

struct FakeSelectRegionService : public services::SelectRegionServiceAbstract {
    void selectItems(double x1, double y1, double x2, double y2, bool addToSelection) override
    {
        std::ostringstream text;
        text << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2 << (addToSelection ? " more" : " only");
        selected = text.str();
    }
    std::string selected;
};

struct FakeMiscService : public services::ManagerMiscServiceAbstract {
    int translateNonPrintableKeyboardCode(int qtKey) const override { return qtKey + 1; }
    void getDotPitchPerCm(double* x, double* y) const override
    {
        *x = 38;
        *y = 39;
    }
    void getScreenSizeInPixels(int* width, int* height) const override
    {
        *width = 1280;
        *height = 1024;
    }
    int keyboardModifiers() const override { return 5; }
    bool mouseButtonState(sdk::integration::MouseEventInterface::MouseButton_e button) const override
    {
        return button == sdk::integration::MouseEventInterface::MouseButton_Middle;
    }
    std::string openGLVersionString() const override { return "4.5 of the test"; }
    operator long() const override { return reinterpret_cast<long>(this); }
};

struct FakeOffscreenImageService : public services::OffscreenImageServiceAbstract {
    OffscreenImageInterface* imageCreate(int, int, ImageRenderingStrategy_e) override { return nullptr; }
    bool imageGetRGBRow(OffscreenImageInterface*, int, unsigned char*, unsigned char*, unsigned char*) override
    {
        return false;
    }
    void imageDestroy(OffscreenImageInterface*) override {}
};

} // namespace velmora::tests
