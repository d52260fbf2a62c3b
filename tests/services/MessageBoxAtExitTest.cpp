// A process in which a box was answered and the application object goes before the service does,
// as it is with a service that lives until the end of the process. To end with code 0 is the test.
#include "integration/services/MessageBoxService.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <cstdio>

using velmora::sdk::integration::services::MessageBoxService;

namespace {

MessageBoxService& service()
{
    static MessageBoxService instance;
    return instance;
}

int fail(const char* message)
{
    std::fprintf(stderr, "%s\n", message);
    return 1;
}

// Answers a box while the window has the focus, and looks up the guard that is left.
int answerABox(QMainWindow& window, QPointer<QWidget>& marker)
{
    velmora::test::ModalDriver person([&window](QWidget& box) {
        new velmora::test::AtItsEnd(&box, [&window] { QApplication::setActiveWindow(&window); });
        velmora::test::typeKey(XK_Return);
    });
    if (service().displayMessageBox("?", velmora::sdk::integration::MessageBoxType_YesNo) != 0)
        return fail("The box was not answered with Yes.");
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget != &window)
            marker = widget;
    return marker ? 0 : fail("The box has left no guard.");
}

int runApplication(int argc, char** argv)
{
    QPointer<QWidget> marker;
    {
        QApplication application(argc, argv);
        QMainWindow window;
        window.setFocusPolicy(Qt::StrongFocus);
        velmora::test::showAndWait(window);
        window.setFocus();
        if (!velmora::test::waitUntil([&] { return QApplication::focusWidget() == &window; }))
            return fail("The window got no focus.");
        if (const int result = answerABox(window, marker))
            return result;
    }
    return marker ? fail("The guard has outlived the application object.") : 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (const int result = runApplication(argc, argv))
        return result;
    // Once more: a process may have one application object after the other.
    return runApplication(argc, argv);
}
