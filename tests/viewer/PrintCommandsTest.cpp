// Page setup, preview and printing from the File menu, with the toolkit's own dialogs.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "testing/EngineProbe.h"
#include "tests/printing/KernelPaper.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"
#include "tests/viewer/PictureColours.h"
#include "tests/viewer/PrintedPage.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

using namespace velmora::test;
using velmora::sdk::integration::Manager;
using velmora::testing::EngineProbe;

namespace {

enum Paper { Letter = 0, A4 = 2, A3 = 3, Custom2 = 5 };

void clickOn(QWidget& widget)
{
    focusWindow(*widget.window());
    click(widget, QPoint(8, widget.height() / 2));
}

QComboBox* paperChoice(QDialog& dialog)
{
    const QList<QComboBox*> boxes = dialog.findChildren<QComboBox*>();
    for (QComboBox* const box : boxes)
        if (box->findText("A4", Qt::MatchStartsWith) >= 0)
            return box;
    throw std::runtime_error("The dialog has no choice of papers.");
}

void choosePaper(QDialog& dialog, const char* name)
{
    QComboBox* const box = paperChoice(dialog);
    box->setCurrentIndex(box->findText(name, Qt::MatchStartsWith));
}

QDoubleSpinBox* side(QDialog& dialog, const char* ofThePage)
{
    QDoubleSpinBox* const found = dialog.findChild<QDoubleSpinBox*>(QString("page") + ofThePage);
    return found ? found : dialog.findChild<QDoubleSpinBox*>(QString("paper") + ofThePage);
}

QAction* actionOf(QDialog& dialog, const char* text)
{
    const QList<QAction*> actions = dialog.findChildren<QAction*>();
    for (QAction* const action : actions)
        if (action->text() == QLatin1String(text))
            return action;
    throw std::runtime_error(std::string("The dialog has no action ") + text);
}

/// How much of the surface the preview shows.
int previewedPixels(QDialog& dialog)
{
    QPrintPreviewWidget* const preview = dialog.findChild<QPrintPreviewWidget*>();
    QImage picture(preview->size(), QImage::Format_RGB32);
    preview->render(&picture);
    return plotPixels(picture);
}

class PrintCommand : public OpenViewer {
protected:
    PrintCommand()
    {
        open(folder.writeGrid());
        first = picture();
    }

    void setUpPage(const std::function<void(QPageSetupDialog&)>& act)
    {
        Answer<QPageSetupDialog> answer(act);
        action("Page &Setup...")->trigger();
        EXPECT_TRUE(answer.hasActed());
    }

    void preview(const std::function<void(QPrintPreviewDialog&)>& act)
    {
        Answer<QPrintPreviewDialog> answer(act);
        action("Print Pre&view...")->trigger();
        EXPECT_TRUE(answer.hasActed());
    }

    /// Does what opens the print dialog, and has it print into `pdf`.
    void print(const std::function<void()>& openTheDialog)
    {
        Answer<QPrintDialog> answer([this](QPrintDialog& dialog) {
            dialog.findChild<QLineEdit*>("filename")->setText(pdf);
            accept(dialog);
        });
        openTheDialog();
        EXPECT_TRUE(answer.hasActed());
    }

    void expectPrinted(double width, double height)
    {
        EXPECT_TRUE(waitUntil([this] { return window->statusBar()->currentMessage() == "The page is printed."; }));
        EXPECT_NEAR(pageSizeOfPdf(pdf).width(), width, 1.0);
        EXPECT_NEAR(pageSizeOfPdf(pdf).height(), height, 1.0);
        EXPECT_EQ(pageImages(pdf).toStdString(), "image 300");
        expectUprightSurface(pagePicture(pdf));
    }

    QString pdf = folder.file("page.pdf");
    QImage first;
};

} // namespace

TEST_F(PrintCommand, PageSetupShowsTheEnginesPaper)
{
    for (const bool portrait : {true, false}) {
        setKernelPaper(A3);
        setKernelPortrait(portrait);
        setUpPage([&](QPageSetupDialog& dialog) {
            EXPECT_TRUE(paperChoice(dialog)->currentText().startsWith("A3"));
            EXPECT_EQ(dialog.findChild<QRadioButton*>("portrait")->isChecked(), portrait);
            EXPECT_EQ(dialog.findChild<QRadioButton*>("landscape")->isChecked(), !portrait);
            dialog.reject();
        });
        setKernelCustomPaper(123 / 25.4, 234 / 25.4);
        setUpPage([&](QPageSetupDialog& dialog) {
            EXPECT_NEAR(side(dialog, portrait ? "Width" : "Height")->value(), 123, 1);
            EXPECT_NEAR(side(dialog, portrait ? "Height" : "Width")->value(), 234, 1);
            accept(dialog);
        });
        EXPECT_EQ(kernelPaper(), Custom2);
        EXPECT_EQ(kernelLength("Custom2", "Width"), 123 / 25.4);
        EXPECT_EQ(kernelLength("Custom2", "Height"), 234 / 25.4);
    }
}

TEST_F(PrintCommand, PageSetupTurnsTheEnginesPaperByThePointer)
{
    ASSERT_TRUE(kernelPortrait());
    setUpPage([](QPageSetupDialog& dialog) {
        QRadioButton* const landscape = dialog.findChild<QRadioButton*>("landscape");
        clickOn(*landscape);
        EXPECT_TRUE(waitUntil([=] { return landscape->isChecked(); }));
        clickOn(*dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok));
    });
    EXPECT_FALSE(kernelPortrait());
    EXPECT_TRUE(differ(first, picture())) << "the paper shows";
}

TEST_F(PrintCommand, PageSetupGivesTheEngineOneOfItsPapers)
{
    setUpPage([](QPageSetupDialog& dialog) {
        choosePaper(dialog, "A4");
        accept(dialog);
    });
    EXPECT_EQ(kernelPaper(), A4);
    EXPECT_TRUE(differ(first, picture())) << "the paper shows";
}

TEST_F(PrintCommand, PageSetupGivesTheEngineAPaperThatItDoesNotKnow)
{
    setUpPage([](QPageSetupDialog& dialog) {
        choosePaper(dialog, "A5");
        accept(dialog);
    });
    EXPECT_EQ(kernelPaper(), Custom2);
    EXPECT_EQ(kernelLength("Custom2", "Width"), 148 / 25.4);
    EXPECT_EQ(kernelLength("Custom2", "Height"), 210 / 25.4);
    setUpPage([](QPageSetupDialog& dialog) {
        choosePaper(dialog, "Custom");
        side(dialog, "Width")->setValue(120);
        side(dialog, "Height")->setValue(160);
        accept(dialog);
    });
    EXPECT_NEAR(kernelLength("Custom2", "Width") * 25.4, 120, 1);
    EXPECT_NEAR(kernelLength("Custom2", "Height") * 25.4, 160, 1);
}

TEST_F(PrintCommand, ACancelledPageSetupLeavesThePaper)
{
    setUpPage([](QPageSetupDialog& dialog) {
        choosePaper(dialog, "A3");
        dialog.findChild<QRadioButton*>("landscape")->click();
        focusWindow(dialog);
        typeKey(XK_Escape);
    });
    EXPECT_EQ(kernelPaper(), Letter);
    EXPECT_TRUE(kernelPortrait());
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(PrintCommand, ThePreviewShowsOnePageWithTheSurface)
{
    preview([&](QPrintPreviewDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QPrintPreviewWidget*>()->pageCount(), 1);
        EXPECT_GT(previewedPixels(dialog), 500);
        dialog.close();
    });
}

TEST_F(PrintCommand, ThePreviewTurnsTheEnginesPaper)
{
    preview([](QPrintPreviewDialog& dialog) {
        bool isEnabled = true;
        int shownMeanwhile = -1;
        const Onlooker whileDrawn([] { return VelUtilIsBusy() && !kernelPortrait(); },
                                  [&] {
                                      isEnabled = dialog.isEnabled();
                                      shownMeanwhile = previewedPixels(dialog);
                                  });
        actionOf(dialog, "Landscape")->trigger();
        EXPECT_TRUE(waitUntil([&] { return whileDrawn.hasActed() && dialog.isEnabled(); }));
        EXPECT_FALSE(isEnabled) << "nobody can turn a page that is being drawn";
        EXPECT_EQ(shownMeanwhile, 0) << "the old page is gone";
        EXPECT_GT(previewedPixels(dialog), 500);
        dialog.close();
    });
    EXPECT_FALSE(kernelPortrait());
}

TEST_F(PrintCommand, ThePreviewIsDrawnOnceTheEngineIsNotBusyAnyMore)
{
    preview([this](QPrintPreviewDialog& dialog) {
        EngineProbe::setBusy(true);
        actionOf(dialog, "Landscape")->trigger();
        EXPECT_TRUE(kernelPortrait()) << "nothing changes in the middle of work";
        EngineProbe::setBusy(false);
        EXPECT_TRUE(waitUntil([] { return !kernelPortrait() && !VelUtilIsBusy(); }));
        EXPECT_GT(previewedPixels(dialog), 500);
        dialog.close();
    });
    EXPECT_FALSE(kernelPortrait());
}

TEST_F(PrintCommand, APreviewThatIsStoppedBeforeItShowsDoesNotStay)
{
    open(folder.writeGrid(120));
    session->makeDrawingSlow();
    Onlooker person([this] { return VelUtilIsBusy() && button("Stop")->isVisible(); },
                    [this] {
                        focusWindow(*window);
                        typeKey(XK_Escape);
                    });
    action("Print Pre&view...")->trigger();
    EXPECT_TRUE(person.hasActed());
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "Stopped.");
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(PrintCommand, APreviewThatIsStoppedLaterGoes)
{
    preview([this](QPrintPreviewDialog& dialog) {
        session->makeDrawingSlow();
        const Onlooker whileDrawn([] { return VelUtilIsBusy() && !kernelPortrait(); },
                                  [] { Manager::getInstance().getApplicationEventMonitor().interrupt(); });
        actionOf(dialog, "Landscape")->trigger();
        EXPECT_TRUE(waitUntil([&] { return whileDrawn.hasActed() && !dialog.isVisible(); }));
    });
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "Stopped.");
}

TEST_F(PrintCommand, APreviewThatCannotBeDrawnTellsWhyAndDoesNotStay)
{
    EngineProbe::throwAt("drawing");
    QString message;
    Answer<QMessageBox> box([&](QMessageBox& shown) {
        message = shown.text();
        shown.accept();
    });
    action("Print Pre&view...")->trigger();
    EXPECT_TRUE(box.hasActed());
    EXPECT_NE(message.toStdString(), "");
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(PrintCommand, PreviewAndPrintLeaveTheWindowAsItIs)
{
    preview([](QPrintPreviewDialog& dialog) { dialog.close(); });
    EXPECT_FALSE(differ(first, picture()));
    EXPECT_FALSE(action("Show &Page")->isChecked());
    print([this] { action("&Print...")->trigger(); });
    EXPECT_FALSE(differ(first, picture()));
    action("Show &Page")->trigger();
    const QImage page = picture();
    ASSERT_TRUE(differ(first, page));
    preview([](QPrintPreviewDialog& dialog) { dialog.close(); });
    EXPECT_FALSE(differ(page, picture()));
}

TEST_F(PrintCommand, APageThatIsSetUpShows)
{
    setUpPage([](QPageSetupDialog& dialog) { accept(dialog); });
    EXPECT_TRUE(action("Show &Page")->isChecked());
    EXPECT_TRUE(differ(first, picture()));
    action("Show &Page")->trigger();
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(PrintCommand, ThePreviewPrintsAsFinelyAsAlways)
{
    preview([this](QPrintPreviewDialog& dialog) { print([&] { actionOf(dialog, "Print")->trigger(); }); });
    expectPrinted(215.9, 279.4);
}

TEST_F(PrintCommand, PrintingWritesTheEnginesPaperAndIsAskedForByTheKeys)
{
    setKernelPaper(A4);
    VelUtilFrameFitAllToPaper();
    window->update(); // what is changed outside any event is drawn with the next one
    // A key that comes while the engine draws would interrupt it and do nothing else.
    EXPECT_TRUE(waitUntil([] { return VelUtilPageIsComplete() != 0 && !VelUtilIsBusy(); }));
    focusWindow(*window);
    EXPECT_TRUE(waitUntil([this] { return QApplication::activeWindow() == window.get(); }));
    print([this] {
        pressKey(XK_Control_L);
        typeKey(XK_p);
        releaseKey(XK_Control_L);
        EXPECT_TRUE(waitUntil([this] { return QFile::exists(pdf) && !VelUtilIsBusy(); }));
    });
    expectPrinted(210, 297);
    EXPECT_EQ(descriptionInPdf(pdf, "Title").toStdString(), "hill.asc");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(PrintCommand, ACancelledPrintWritesNothingAndSaysNothing)
{
    Answer<QPrintDialog> answer([](QPrintDialog& dialog) { dialog.reject(); });
    action("&Print...")->trigger();
    EXPECT_TRUE(answer.hasActed());
    EXPECT_FALSE(QFile::exists(pdf));
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "");
}
