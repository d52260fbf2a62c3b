// Export from the File menu, with its dialogs.

#include "tests/viewer/OpenViewer.h"

#include "ExportDialog.h"
#include "engine/VelUtil.h"
#include "interfaces/EngineEnumerations.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"
#include "tests/viewer/PictureColours.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>

using namespace velmora::test;
using namespace velmora::sdk::integration;

namespace {

void acceptWithName(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>()->setText(name);
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

    /// The file that the export offers to write.
    std::string offeredName()
    {
        Answer<viewer::ExportDialog> choices([](viewer::ExportDialog& dialog) { accept(dialog); });
        QString name;
        Answer<QFileDialog> file([&](QFileDialog& dialog) {
            name = dialog.directory().filePath(dialog.findChild<QLineEdit*>()->text());
            dialog.reject();
        });
        action("&Export Image...")->trigger();
        EXPECT_TRUE(file.hasActed());
        return name.toStdString();
    }

    /// Exports slowly and acts once a person can see that.
    void expectStopped(const std::function<void()>& act)
    {
        session->makeDrawingSlow();
        const QString name = folder.file("export.png");
        Onlooker onlooker([this] { return VelUtilIsBusy() && button("Stop")->isVisible(); }, act);
        exportTo(name, 2000, 2000, "Software");
        EXPECT_TRUE(onlooker.hasActed());
        EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "Stopped.");
        EXPECT_FALSE(QFile::exists(name));
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
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

TEST_F(OutputCommand, ExportLeavesTheGroundOutWhereThatIsChosen)
{
    const QString name = folder.file("export.png");
    exportTo(name, 320, 240, "Software");
    EXPECT_EQ(QImage(name).pixel(0, 0), qRgb(255, 255, 255));
    ASSERT_TRUE(QFile::remove(name));
    Answer<viewer::ExportDialog> choices([](viewer::ExportDialog& dialog) {
        dialog.findChild<QCheckBox*>("transparent")->click();
        accept(dialog);
    });
    Answer<QFileDialog> file([&](QFileDialog& dialog) { acceptWithName(dialog, name); });
    action("&Export Image...")->trigger();
    EXPECT_TRUE(file.hasActed());
    const QImage image(name);
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
    EXPECT_EQ(qAlpha(image.pixel(image.rect().center())), 255) << "the surface";
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

TEST_F(OutputCommand, ExportOffersThePlotThePageAndWhatTheWindowShows)
{
    viewer::ExportDialog dialog(QSize(600, 300), window.get());
    QComboBox* const regions = dialog.findChild<QComboBox*>("region");
    ASSERT_EQ(regions->count(), 3);
    const ExportRegion_e offered[] = {ExportRegion_CurrentFrame, ExportRegion_Page, ExportRegion_WorkArea};
    for (int i = 0; i < 3; ++i) {
        regions->setCurrentIndex(i);
        EXPECT_EQ(dialog.options().region, offered[i]);
    }
}

TEST_F(OutputCommand, ExportIsStoppedByEscapeAndLeavesNoFile)
{
    expectStopped([this] {
        focusWindow(*window);
        typeKey(XK_Escape);
    });
}

TEST_F(OutputCommand, ExportIsStoppedByAClickBesideItsProgressBarAndLeavesNoFile)
{
    expectStopped([this] {
        EXPECT_TRUE(progressBar()->isVisible());
        EXPECT_LT(progressBar()->value(), progressBar()->maximum());
        const QPushButton& stop = *button("Stop");
        movePointer(stop, stop.rect().center());
        pressButton(1);
        releaseButton(1);
    });
    EXPECT_FALSE(progressBar()->isVisible());
    EXPECT_FALSE(button("Stop")->isVisible());
}

TEST_F(OutputCommand, ExportOffersANameAfterTheDataBesideThem)
{
    EXPECT_EQ(offeredName(), folder.file("hill.png").toStdString());
    QDir(folder.path()).mkdir("pictures");
    exportTo(folder.file("pictures/mine.png"), 64, 48, "Software");
    EXPECT_EQ(offeredName(), folder.file("pictures/hill.png").toStdString()) << "where the last one went";
    const QString renamed = folder.file("dotted.name.csv");
    ASSERT_TRUE(QFile::rename(folder.writeTable(), renamed));
    open(renamed);
    EXPECT_EQ(offeredName(), folder.file("pictures/dotted.name.png").toStdString());
}

TEST_F(OutputCommand, ACancelledExportWritesNothing)
{
    Answer<viewer::ExportDialog> choices([](viewer::ExportDialog& dialog) { dialog.reject(); });
    action("&Export Image...")->trigger();
    EXPECT_TRUE(choices.hasActed());
    EXPECT_EQ(window->statusBar()->currentMessage().toStdString(), "");
}
