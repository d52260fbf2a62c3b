// What people who do not see the screen are told of the window, by the programs that read it to them.

#include "tests/viewer/OpenViewer.h"

#include "ExportDialog.h"
#include "HelpWindow.h"
#include "tests/support/AccessibleText.h"
#include "tests/support/Wait.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTextBrowser>
#include <QToolBar>

using namespace velmora::test;

namespace {

class Accessible : public OpenViewer {
protected:
    void SetUp() override
    {
        if (const char* const reason = whyNothingIsTold())
            GTEST_SKIP() << reason;
    }
};

QString withoutMarks(QString text)
{
    return text.remove('&').remove("...");
}

} // namespace

TEST_F(Accessible, ThePlotIsNamedAndTellsWhatItShows)
{
    EXPECT_EQ(accessibleNameOf(area()), "Plot");
    EXPECT_EQ(accessibleDescriptionOf(area()), "Open a table or a grid with File > Open, or drop it here.");
    open(folder.writeGrid());
    EXPECT_EQ(accessibleDescriptionOf(area()), "hill.asc: 24 x 24 grid, no gaps");
}

TEST_F(Accessible, EveryToolTellsItsNameAndItsKey)
{
    QToolBar& bar = *window->findChild<QToolBar*>();
    EXPECT_EQ(accessibleNameOf(bar), "Tools");
    const QList<QAction*> tools = bar.actions();
    for (QAction* const tool : tools) {
        if (tool->isSeparator())
            continue;
        QWidget& button = *bar.widgetForAction(tool);
        EXPECT_EQ(accessibleNameOf(button), withoutMarks(tool->text()));
        EXPECT_EQ(accessibleDescriptionOf(button), tool->toolTip());
    }
}

TEST_F(Accessible, TheStatusBarTellsWhatItShows)
{
    EXPECT_EQ(accessibleNameOf(*progressBar()), "Progress");
    EXPECT_EQ(accessibleNameOf(*button("Stop")), "Stop");
    EXPECT_EQ(accessibleNameOf(*button("Finish")), "Finish");
}

TEST_F(Accessible, EveryFieldOfTheExportIsNamed)
{
    viewer::ExportDialog dialog(QSize(640, 480), window.get());
    ASSERT_TRUE(showAndWait(dialog)) << "of a hidden field nothing need be told";
    const QList<QWidget*> fields = dialog.findChildren<QWidget*>();
    int count = 0;
    for (QWidget* const field : fields)
        if (qobject_cast<QSpinBox*>(field) || qobject_cast<QComboBox*>(field)) {
            ++count;
            EXPECT_FALSE(accessibleNameOf(*field).isEmpty()) << field->objectName().toStdString();
        }
    EXPECT_EQ(count, 6);
}

TEST_F(Accessible, TheHelpIsNamed)
{
    viewer::HelpWindow& help = *window->findChild<viewer::HelpWindow*>();
    EXPECT_EQ(accessibleNameOf(*help.findChild<QTextBrowser*>()), "Help");
}
