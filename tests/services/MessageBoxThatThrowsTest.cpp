// What is left when a box cannot be built. The toolkit's function for it is this program's own.
#include "integration/services/MessageBoxService.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <gtest/gtest.h>
#include <new>

namespace {

int shapeOverTheBox = -1;

} // namespace

// Stands before the toolkit's own for everybody in this process; Qt 4's headers do not show it by themselves.
__attribute__((visibility("default"))) QMessageBox::StandardButton
QMessageBox::critical(QWidget*, const QString&, const QString&, StandardButtons, StandardButton)
{
    if (const QCursor* const cursor = QApplication::overrideCursor())
        shapeOverTheBox = cursor->shape();
    throw std::bad_alloc();
}

namespace velmora::test {

namespace {

using sdk::integration::MessageBoxType_e;
using sdk::integration::MessageBoxType_Error;
using sdk::integration::services::MessageBoxService;

QWidget* windowOtherThan(const QWidget& window)
{
    for (QWidget* const other : QApplication::topLevelWidgets())
        if (other != &window)
            return other;
    return nullptr;
}

} // namespace

TEST(MessageBoxThatThrows, TheCursorIsBackAndTheGuardOfTheBoxBeforeStays)
{
    QMainWindow window;
    window.setFocusPolicy(Qt::StrongFocus);
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    window.activateWindow();
    window.setFocus();
    ASSERT_TRUE(waitUntil([&] { return QApplication::focusWidget() == &window; }));
    MessageBoxService service;
    service.displayMessageBox("?", static_cast<MessageBoxType_e>(7));
    const QPointer<QWidget> guard(windowOtherThan(window));
    ASSERT_TRUE(guard);

    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    EXPECT_THROW(service.displayMessageBox("?", MessageBoxType_Error), std::bad_alloc);
    EXPECT_EQ(Qt::ArrowCursor, shapeOverTheBox);
    ASSERT_NE(nullptr, QApplication::overrideCursor());
    EXPECT_EQ(Qt::WaitCursor, QApplication::overrideCursor()->shape());
    QApplication::restoreOverrideCursor();
    EXPECT_EQ(nullptr, QApplication::overrideCursor());

    EXPECT_TRUE(guard);
    EXPECT_EQ(2, QApplication::topLevelWidgets().size());
}

} // namespace velmora::test
