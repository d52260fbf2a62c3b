// What the engine is told about screen, keyboard, mouse and OpenGL.
#include "chosen_toolkit/GLWidget.h"
#include "integration/services/ManagerMiscService.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <algorithm>
#include <climits>
#include <cmath>
#include <gmock/gmock.h>
#include <memory>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

namespace velmora::test {

namespace {

using sdk::integration::MouseEventInterface;
using sdk::integration::services::ManagerMiscService;
using sdk::integration::services::ManagerMiscServiceInterface;

// A window in the middle of the screen that has the keyboard and the mouse.
class MiscServiceInput : public testing::Test {
protected:
    void SetUp() override
    {
        m_window.setGeometry(200, 200, 200, 200);
        ASSERT_TRUE(showAndWait(m_window));
        focusWindow(m_window);
        ASSERT_TRUE(waitUntil([this] { return m_window.isActiveWindow(); }));
        movePointer(m_window, QPoint(100, 100));
    }

    bool modifiersBecome(int expected)
    {
        return waitUntil([&] { return m_service.keyboardModifiers() == expected; }, 3000);
    }

    bool becomesHeld(MouseEventInterface::MouseButton_e button, bool held)
    {
        return waitUntil([&] { return m_service.mouseButtonState(button) == held; }, 3000);
    }

    // The toolkit learns of modifiers with the next event that carries them, as a mouse move does.
    void holding(std::initializer_list<unsigned long> keys, int expected)
    {
        for (const unsigned long key : keys)
            pressKey(key);
        movePointer(m_window, QPoint(101, 100));
        EXPECT_TRUE(modifiersBecome(expected)) << "expected " << expected << ", is " << m_service.keyboardModifiers();
        for (const unsigned long key : keys)
            releaseKey(key);
        movePointer(m_window, QPoint(100, 100));
        EXPECT_TRUE(modifiersBecome(0));
    }

    QWidget m_window;
    ManagerMiscService m_service;
};

} // namespace

TEST(MiscService, EveryKeyOfTheTableHasItsControlCharacter)
{
    const int expected[22] = {27, 31, 31, 8, 13, 13, 31, 127, 31, 31, 31, 31, 31, 31, 31, 31, 31, 31, 29, 11, 30, 10};
    const ManagerMiscService service;
    for (int i = 0; i < 22; ++i)
        EXPECT_EQ(expected[i], service.translateNonPrintableKeyboardCode(0x01000000 + i)) << "0x010000xx, xx = " << i;
}

TEST(MiscService, NamedKeysHaveTheirControlCharacters)
{
    const ManagerMiscService service;
    const std::pair<int, int> keys[] = {
        {Qt::Key_Escape, 27},  {Qt::Key_Backspace, 8}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_Delete, 127},
        {Qt::Key_Left, 29},    {Qt::Key_Up, 11},       {Qt::Key_Right, 30},  {Qt::Key_Down, 10},  {Qt::Key_Tab, 31},
        {Qt::Key_Backtab, 31}, {Qt::Key_Insert, 31},   {Qt::Key_Pause, 31},  {Qt::Key_Print, 31}, {Qt::Key_SysReq, 31},
        {Qt::Key_Clear, 31},   {Qt::Key_Home, 31},     {Qt::Key_End, 31}};
    for (const std::pair<int, int>& key : keys)
        EXPECT_EQ(key.second, service.translateNonPrintableKeyboardCode(key.first)) << std::hex << key.first;
}

TEST(MiscService, KeysOutsideTheTableHaveNone)
{
    const ManagerMiscService service;
    const int outside[] = {0x00ffffff, 0x01000016, Qt::Key_PageUp, Qt::Key_F1, Qt::Key_A, 0, -1, INT_MIN, INT_MAX};
    for (const int key : outside)
        EXPECT_EQ(31, service.translateNonPrintableKeyboardCode(key)) << key;
}

TEST(MiscService, TheDotPitchIsThatOfTheDesktop)
{
    const ManagerMiscService service;
    double x = 0, y = 0;
    service.getDotPitchPerCm(&x, &y);
    const QWidget onScreen;
    const double scale = displayScale(onScreen);
    EXPECT_EQ(onScreen.logicalDpiX() * scale / 2.54, x);
    EXPECT_EQ(onScreen.logicalDpiY() * scale / 2.54, y);
    // The private X server of the tests has 96 dots per inch.
    EXPECT_DOUBLE_EQ(37.795275590551178 * velmora::test::inchScale(onScreen), x);
    EXPECT_DOUBLE_EQ(37.795275590551178 * velmora::test::inchScale(onScreen), y);
}

TEST(MiscService, TheScreenSizeIsThatOfTheXServer)
{
    const ManagerMiscService service;
    int width = 0, height = 0;
    service.getScreenSizeInPixels(&width, &height);
    // The toolkit does not know it more exactly when it scales by a fraction.
    const double scale = displayScale(QWidget());
    const int off = scale > std::floor(scale) ? 1 : 0;
    EXPECT_NEAR(DisplayWidth(velmora::test::toolkitDisplay(), 0), width, off);
    EXPECT_NEAR(DisplayHeight(velmora::test::toolkitDisplay(), 0), height, off);
}

TEST(MiscService, ANullPointerForAScreenSizeIsSkipped)
{
    const ManagerMiscService service;
    int width = -1, height = -1;
    service.getScreenSizeInPixels(&width, nullptr);
    EXPECT_GT(width, 0);
    service.getScreenSizeInPixels(nullptr, &height);
    EXPECT_GT(height, 0);
    service.getScreenSizeInPixels(nullptr, nullptr);
}

TEST(MiscService, ItsAddressIsThatOfItsInterface)
{
    const ManagerMiscService service;
    const ManagerMiscServiceInterface& interface = service;
    EXPECT_EQ(reinterpret_cast<long>(&interface), static_cast<long>(service));
    EXPECT_EQ(reinterpret_cast<long>(&interface), static_cast<long>(interface));
}

TEST(MiscService, TheOpenGLVersionIsThatOfTheScreenAndNoContextIsLeftCurrent)
{
    velmora::sdk::integration::toolkit::GLWidget widget;
    widget.makeCurrent();
    const std::string expected(reinterpret_cast<const char*>(glGetString(GL_VERSION)));
    ASSERT_FALSE(expected.empty());
    ASSERT_EQ(widget.context(), velmora::sdk::integration::toolkit::GLContext::currentContext());

    const ManagerMiscService service;
    const int windows = QApplication::topLevelWidgets().size();
    EXPECT_EQ(expected, service.openGLVersionString());
    EXPECT_EQ(windows, QApplication::topLevelWidgets().size());
    EXPECT_EQ(nullptr, velmora::sdk::integration::toolkit::GLContext::currentContext());
}

TEST_F(MiscServiceInput, ModifiersAreBitsThatAddUp)
{
    holding({XK_Shift_L}, 1);
    holding({XK_Control_L}, 2);
    holding({XK_Alt_L}, 4);
    // Alt goes down first: while Shift is held its key is Meta's, and Qt 4 takes it for that.
    holding({XK_Alt_L, XK_Shift_L}, 5);
    holding({XK_Alt_L, XK_Shift_L, XK_Control_L}, 7);
}

TEST_F(MiscServiceInput, OtherModifiersAreLeftOut)
{
    pressKey(XK_Super_L);
    pressKey(XK_Shift_L);
    movePointer(m_window, QPoint(101, 100));
    ASSERT_TRUE(waitUntil([] { return QApplication::keyboardModifiers() == (Qt::MetaModifier | Qt::ShiftModifier); }));
    EXPECT_EQ(1, m_service.keyboardModifiers());
    releaseKey(XK_Shift_L);
    releaseKey(XK_Super_L);
    movePointer(m_window, QPoint(100, 100));
    EXPECT_TRUE(waitUntil([] { return QApplication::keyboardModifiers() == Qt::NoModifier; }));
}

TEST_F(MiscServiceInput, EachButtonIsKnownWhileItIsHeld)
{
    for (int button = 1; button <= 3; ++button) {
        SCOPED_TRACE(button);
        pressButton(button);
        for (int other = 0; other <= 4; ++other)
            EXPECT_TRUE(becomesHeld(static_cast<MouseEventInterface::MouseButton_e>(other), other == button)) << other;
        releaseButton(button);
        EXPECT_TRUE(becomesHeld(static_cast<MouseEventInterface::MouseButton_e>(button), false));
    }
}

TEST_F(MiscServiceInput, NoButtonIsNeverHeld)
{
    pressButton(1);
    ASSERT_TRUE(becomesHeld(MouseEventInterface::MouseButton_Left, true));
    EXPECT_FALSE(m_service.mouseButtonState(MouseEventInterface::MouseButton_None));
    releaseButton(1);
    EXPECT_TRUE(becomesHeld(MouseEventInterface::MouseButton_Left, false));
}

} // namespace velmora::test
