#pragma once

#include "EngineSession.h"
#include "MainWindow.h"
#include "integration/glarea/GLDrawArea.h"
#include "tests/viewer/TempFolder.h"

#include <QImage>
#include <gtest/gtest.h>
#include <memory>
#include <string>

class QAction;
class QProgressBar;
class QPushButton;

namespace velmora::test {

/// The viewer's own window over a running engine, on the screen and with the input focus. Its
/// settings go to a folder of the test's own.
class OpenViewer : public ::testing::Test {
protected:
    OpenViewer();
    ~OpenViewer() override;

    /// Opens the file and waits until its picture is complete.
    void open(const QString& fileName);
    /// Waits until nothing waits to be drawn: the picture is complete or was interrupted.
    bool settle();
    /// What the X server shows of the drawing area once it has settled, without the mark at the pointer.
    QImage picture();
    /// What it shows now.
    QImage shown() const;

    /// A part of a picture of the area, as large as it is in the area.
    QImage part(const QImage& picture, const QRect& rect);

    QWidget& area() { return window->drawArea(); }
    /// Where the picture shows a value that VelUtilViewValueAt() tells; null where it shows none such.
    QPoint placeOf(const QString& value);
    /// Where the legend has the line; it fails the test when it has no room for it.
    QPoint legendEntry(int line);
    QPoint centre() { return area().rect().center(); }

    // What a person does with the pointer over the area, and with the keys; each returns once the
    // application has heard of it. A press in the middle of a drawing counts for nothing, so `drag`
    // and `clickTool` let the picture settle first.
    void press(const QPoint& position, int button = 1);
    void release(int button = 1);
    void drag(const QPoint& way, int button = 1);
    void wheel(bool up);
    void type(unsigned long keySymbol);
    void typeWith(unsigned long modifier, unsigned long keySymbol);

    /// The action's button of the tool bar.
    QWidget* tool(const char* text) const;
    void clickTool(const char* text);

    QPushButton* button(const char* text) const;
    QAction* action(const char* text) const;
    QProgressBar* progressBar() const;
    /// Whether a label of the status bar shows this now.
    bool statusBarSays(const QString& text) const;
    /// What the status bar says for a while, over its labels.
    std::string note() const;

    TempFolder folder;
    std::unique_ptr<viewer::EngineSession> session;
    std::unique_ptr<viewer::MainWindow> window;
};

/// The pictures differ in more than a few pixels.
bool differ(const QImage& a, const QImage& b);

} // namespace velmora::test
