// The commands of the File menu that bring a picture out of the window, with their dialogs.

#include "tests/viewer/OpenViewer.h"

#include "ExportDialog.h"
#include "engine/VelUtil.h"
#include "integration/printing/PrintingUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/Onlooker.h"
#include "tests/viewer/PictureColours.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>

// After Qt, whose enumerators some of Xlib's macros would replace.
#define XK_MISCELLANY
#include <X11/keysymdef.h>

using namespace velmora::test;

namespace {

template <typename Dialog>
Dialog* openDialog()
{
    Dialog* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isVisible() ? dialog : nullptr;
}

/// Acts on a dialog of that class as soon as it is open.
template <typename Dialog>
class Answer : public Onlooker {
public:
    explicit Answer(std::function<void(Dialog&)> act)
        : Onlooker([] { return openDialog<Dialog>() != nullptr; }, [act] { act(*openDialog<Dialog>()); })
    {}
};

void acceptWithName(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>()->setText(name);
    QMetaObject::invokeMethod(&dialog, "accept");
}

void accept(QDialog& dialog)
{
    QMetaObject::invokeMethod(&dialog, "accept");
}

class OutputCommand : public OpenViewer {
protected:
    OutputCommand()
    {
        open(folder.writeGrid());
        first = picture();
    }

    /// Runs the export with these choices in its dialog.
    void exportTo(const QString& name, int width, int height, const QString& strategy)
    {
        Answer<viewer::ExportDialog> choices([&](viewer::ExportDialog& dialog) {
            dialog.findChild<QSpinBox*>("width")->setValue(width);
            dialog.findChild<QSpinBox*>("height")->setValue(height);
            QComboBox* const box = dialog.findChild<QComboBox*>("strategy");
            box->setCurrentIndex(box->findText(strategy));
            accept(dialog);
        });
        Answer<QFileDialog> file([&](QFileDialog& dialog) { acceptWithName(dialog, name); });
        action("&Export Image...")->trigger();
        EXPECT_TRUE(choices.hasActed());
        EXPECT_TRUE(file.hasActed());
    }

    bool isLandscape()
    {
        QPrinter printer;
        velmora::sdk::integration::UpdatePrinterFromKernel(printer);
        return printer.orientation() == QPrinter::Landscape;
    }

    QImage first;
};

} // namespace

TEST_F(OutputCommand, ExportWritesThePictureAndTheScreenStaysAsItWas)
{
    for (const char* const strategy : {"Graphics hardware", "Software"}) {
        const QString name = folder.file("export.png");
        exportTo(name, 640, 480, strategy);
        const QImage image(name);
        EXPECT_EQ(image.size(), QSize(640, 480));
        expectSurface(image);
        EXPECT_EQ(window->statusBar()->currentMessage(), name + " is written.");
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(waitUntil([&] { return !differ(first, picture()); }));
        EXPECT_TRUE(QFile::remove(name));
    }
}

TEST_F(OutputCommand, ExportShowsTheSizeOnPaperBeforehand)
{
    viewer::ExportDialog dialog(QSize(600, 300), window.get());
    const QLabel* const preview = dialog.findChild<QLabel*>("preview");
    dialog.findChild<QSpinBox*>("resolution")->setValue(300);
    EXPECT_EQ(preview->text().toStdString(), "600 x 300 pixels: 2.00 x 1.00 in (51 x 25 mm) at 300 dots per inch");
    dialog.findChild<QSpinBox*>("width")->setValue(1200);
    EXPECT_TRUE(preview->text().startsWith("1200 x 300 pixels: 4.00 x 1.00 in")) << preview->text().toStdString();
    EXPECT_EQ(dialog.options().width, 1200);
    EXPECT_EQ(dialog.options().dotsPerInch, 300);
}

TEST_F(OutputCommand, ExportIsStoppedByEscapeAndLeavesNoFile)
{
    session->makeDrawingSlow();
    Onlooker onlooker([this] { return VelUtilIsBusy() && button("Stop")->isVisible(); },
                      [this] {
                          focusWindow(*window);
                          typeKey(XK_Escape);
                      });
    exportTo(folder.file("export.png"), 2000, 2000, "Software");
    EXPECT_TRUE(onlooker.hasActed());
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "Stopped.");
    EXPECT_FALSE(QFile::exists(folder.file("export.png")));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(OutputCommand, ACancelledExportWritesNothing)
{
    Answer<viewer::ExportDialog> choices([](viewer::ExportDialog& dialog) { dialog.reject(); });
    action("&Export Image...")->trigger();
    EXPECT_TRUE(choices.hasActed());
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "");
}

TEST_F(OutputCommand, PageSetupTurnsTheEnginesPaper)
{
    ASSERT_FALSE(isLandscape());
    Answer<QPageSetupDialog> answer([](QPageSetupDialog& dialog) {
        dialog.findChild<QRadioButton*>("landscape")->click();
        accept(dialog);
    });
    action("Page &Setup...")->trigger();
    EXPECT_TRUE(answer.hasActed());
    EXPECT_TRUE(isLandscape());
    EXPECT_TRUE(differ(first, picture())) << "the paper shows";
}

TEST_F(OutputCommand, ACancelledPageSetupLeavesThePaper)
{
    Answer<QPageSetupDialog> answer([](QPageSetupDialog& dialog) {
        dialog.findChild<QRadioButton*>("landscape")->click();
        dialog.reject();
    });
    action("Page &Setup...")->trigger();
    EXPECT_FALSE(isLandscape());
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(OutputCommand, ThePreviewShowsOnePageWithTheSurface)
{
    QImage preview;
    int pages = 0;
    Answer<QPrintPreviewDialog> answer([&](QPrintPreviewDialog& dialog) {
        QPrintPreviewWidget* const widget = dialog.findChild<QPrintPreviewWidget*>();
        pages = widget->pageCount();
        preview = QImage(widget->size(), QImage::Format_RGB32);
        widget->render(&preview);
        dialog.close();
    });
    action("Print Pre&view...")->trigger();
    EXPECT_TRUE(answer.hasActed());
    EXPECT_EQ(pages, 1);
    EXPECT_GT(plotPixels(preview), 500);
}

TEST_F(OutputCommand, PrintingIntoAFileWritesAPage)
{
    const QString name = folder.file("page.pdf");
    Answer<QPrintDialog> answer([&](QPrintDialog& dialog) {
        dialog.findChild<QLineEdit*>("filename")->setText(name);
        accept(dialog);
    });
    action("&Print...")->trigger();
    EXPECT_TRUE(answer.hasActed());
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF"));
    EXPECT_GT(file.size(), 10000);
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "The page is printed.");
}
