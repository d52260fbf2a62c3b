// What somebody does who tries the viewer for the first time, with the samples, by the pointer and the keys alone.

#include "tests/viewer/OpenViewer.h"

#include "ExportDialog.h"
#include "ScreenPixels.h"
#include "ValueLabel.h"
#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"
#include "tests/viewer/EventWatch.h"
#include "tests/viewer/PictureColours.h"
#include "tests/viewer/PrintedPage.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QStatusBar>

using namespace velmora::test;

namespace {

class FirstTenMinutes : public OpenViewer {
protected:
    /// A box that tells of something wrong would stand over the window until somebody answers it.
    FirstTenMinutes()
        : m_noBox([](QMessageBox& box) {
              ADD_FAILURE() << box.text().toStdString();
              box.reject();
          })
    {}

    /// Copies of the samples, because the test changes one.
    QStringList samples()
    {
        QStringList copies;
        const QDir data(SAMPLE_DATA);
        for (const QString& name : data.entryList(QStringList() << "*.asc"
                                                                << "*.csv",
                                                  QDir::Files, QDir::Name)) {
            copies.append(folder.file(name.toUtf8().constData()));
            EXPECT_TRUE(QFile::copy(data.filePath(name), copies.last()));
            EXPECT_TRUE(QFile::setPermissions(copies.last(), QFile::ReadOwner | QFile::WriteOwner));
        }
        return copies;
    }

    void typeWithControl(unsigned long key)
    {
        focusWindow(*window);
        pressKey(XK_Control_L);
        typeKey(key); // whose coming up may reach no widget while a dialog is open
        releaseKey(XK_Control_L);
    }
    /// Into the window that has the focus: letters, digits, and what names of files have besides.
    static void typeText(const QString& text)
    {
        for (const QChar letter : text) {
            if (letter == '_' || letter.isUpper())
                pressKey(XK_Shift_L);
            typeKey(letter == '_' ? XK_minus : letter.toLower().unicode());
            if (letter == '_' || letter.isUpper())
                releaseKey(XK_Shift_L);
        }
    }

    void openByKeys(const QString& file)
    {
        Answer<QFileDialog> dialog([&](QFileDialog& box) {
            focusWindow(box);
            typeText(file);
            typeKey(XK_Return);
            EXPECT_TRUE(waitUntil([] { return !openDialog<QFileDialog>(); }));
        });
        typeWithControl(XK_o);
        const QString title = QFileInfo(file).fileName() + " - Viewer";
        EXPECT_TRUE(waitUntil([&] { return dialog.hasActed() && window->windowTitle() == title; }))
            << title.toStdString();
        EXPECT_TRUE(settle());
    }

    QString valueUnderPointer() { return window->findChild<viewer::ValueLabel*>()->text(); }
    void readValue(const QPoint& place)
    {
        int moves = 0;
        const auto isTold = [&] {
            movePointer(area(), place + QPoint(++moves % 2, 0));
            processPending();
            return valueUnderPointer().contains(" = ");
        };
        EXPECT_TRUE(waitUntil(isTold, 10000));
    }

    template <typename Act>
    void changesPicture(const char* what, const Act& act)
    {
        const QImage before = picture();
        act();
        EXPECT_TRUE(waitUntil([&] { return settle() && differ(before, picture()); }, 10000)) << what;
    }
    void zoomInEveryWay()
    {
        changesPicture("wheel", [this] {
            movePointer(area(), centre());
            wheel(true);
        });
        changesPicture("box", [this] {
            pressKey(XK_Shift_L);
            press(centre() - QPoint(60, 40));
            movePointer(area(), centre() + QPoint(60, 40));
            release();
            releaseKey(XK_Shift_L);
        });
        changesPicture("key", [this] { type(XK_minus); });
        changesPicture("fit", [this] { type(XK_f); });
    }

    void exportByKeys(const QString& png)
    {
        Answer<viewer::ExportDialog> choices([](viewer::ExportDialog& dialog) {
            focusWindow(dialog);
            typeKey(XK_Return);
            EXPECT_TRUE(waitUntil([] { return !openDialog<viewer::ExportDialog>(); }));
        });
        Answer<QFileDialog> file([&](QFileDialog& dialog) {
            focusWindow(dialog);
            typeWithControlA();
            typeText(png);
            typeKey(XK_Return);
            EXPECT_TRUE(waitUntil([] { return !openDialog<QFileDialog>(); }));
        });
        typeWithControl(XK_e);
        const QString note = png + " is written.";
        EXPECT_TRUE(waitUntil([&] { return window->statusBar()->currentMessage() == note; }, 60000));
    }
    static void typeWithControlA()
    {
        pressKey(XK_Control_L);
        typeKey(XK_a);
        releaseKey(XK_Control_L);
    }

    /// There is no printer: the dialog prints into the file that it names.
    QString printByKeys()
    {
        const QString pdf = folder.file("page.pdf");
        Answer<QPrintDialog> dialog([&](QPrintDialog& box) {
            box.findChild<QLineEdit*>("filename")->setText(pdf);
            focusWindow(box);
            typeKey(XK_Return);
            EXPECT_TRUE(waitUntil([] { return !openDialog<QPrintDialog>(); }));
        });
        typeWithControl(XK_p);
        EXPECT_TRUE(
            waitUntil([this] { return window->statusBar()->currentMessage() == "The page is printed."; }, 60000));
        return pdf;
    }

private:
    Answer<QMessageBox> m_noBox;
};

} // namespace

TEST_F(FirstTenMinutes, EverySampleIsOpenedLookedAtPutOutAndReadAgain)
{
    const QStringList files = samples();
    ASSERT_GE(files.size(), 2);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        openByKeys(file);
        if (VelUtilViewCanRotate())
            changesPicture("turn", [this] { drag(QPoint(60, 20)); });
        else
            changesPicture("hide", [this] {
                press(legendEntry(2));
                release();
            });
        zoomInEveryWay();
        readValue(centre());
        exportByKeys(folder.file("picture.png"));
        const QImage exported(folder.file("picture.png"));
        EXPECT_EQ(exported.size(), viewer::screenSize(window->drawArea()));
        EXPECT_TRUE(QFile::remove(folder.file("picture.png")));
        const QString pdf = printByKeys();
        EXPECT_NEAR(pageSizeOfPdf(pdf).width(), 215.9, 1.0);
        EXPECT_GT(contents(pagePicture(pdf)).width(), 400);
        EXPECT_TRUE(QFile::remove(pdf));
        const QString description = VelUtilDataDescription();
        type(XK_F5);
        EXPECT_TRUE(settle());
        EXPECT_EQ(QString(VelUtilDataDescription()), description);
        EXPECT_EQ(VelUtilLineIsShown(2), 0) << "what was hidden is hidden";
    }
}
