// The help: that it opens, and that it tells what the window can do today.

#include "tests/viewer/OpenViewer.h"

#include "HelpPage.h"
#include "HelpWindow.h"
#include "Options.h"
#include "tests/support/ToolkitFacts.h"
#include "tests/support/Wait.h"
#include "tests/support/WindowManager.h"
#include "tests/support/XInput.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QSet>
#include <QTextBrowser>
#include <QTextDocument>

#include <algorithm>

using namespace velmora::test;

namespace {

QString pageText()
{
    QFile page(":/help/viewer");
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    return QString::fromUtf8(page.readAll());
}

/// What stands between backquotes in the first column of the tables with that heading.
QStringList firstCells(const QString& heading)
{
    QStringList found;
    bool inside = false;
    const QStringList lines = pageText().split('\n');
    for (const QString& line : lines) {
        inside = line.startsWith("| " + heading + " |") || (inside && line.startsWith('|'));
        const QStringList parts = line.section('|', 1, 1).split('`');
        for (int i = 1; inside && i < parts.size(); i += 2)
            found.append(parts[i]);
    }
    return found;
}

class Help : public OpenViewer {
protected:
    QStringList shortcuts() const
    {
        QSet<QString> keys; // one is the key of two commands, in turn
        const QList<QAction*> actions = window->findChildren<QAction*>();
        for (const QAction* const action : actions) {
            const QList<QKeySequence> sequences = action->shortcuts();
            for (const QKeySequence& sequence : sequences)
                keys.insert(sequence.toString());
        }
        QStringList sorted = keys.values();
        sorted.sort();
        return sorted;
    }

    viewer::HelpWindow& help() const { return *window->findChild<viewer::HelpWindow*>(); }
    QTextBrowser& browser() const { return *help().findChild<QTextBrowser*>(); }

    void openHelp()
    {
        type(XK_F1);
        EXPECT_TRUE(waitUntil([this] { return help().isVisible(); }));
        if (!hasWindowManager() && !activatesBeforeMapping())
            focusWindow(help());
        EXPECT_TRUE(waitUntil([this] { return QApplication::activeWindow() == &help(); }));
        processPending();
    }
};

} // namespace

TEST_F(Help, TellsEveryKeyOfTheWindowAndNoOther)
{
    QStringList told = firstCells("key");
    told.sort();
    EXPECT_GE(told.size(), 15);
    EXPECT_EQ(told.join(" ").toStdString(), shortcuts().join(" ").toStdString());
}

TEST_F(Help, TellsEveryOptionOfTheCommandLineAndNoOther)
{
    QStringList told;
    const QStringList cells = firstCells("word");
    for (const QString& cell : cells)
        told.append(cell.section(' ', 0, 0));
    QStringList offered(QLatin1String("FILE"));
    const QStringList lines = viewer::helpText().split('\n');
    for (const QString& line : lines)
        if (line.startsWith("  -"))
            offered += line.left(26).remove(',').split(' ').filter("-");
    told.sort();
    offered.sort();
    EXPECT_GE(offered.size(), 12);
    EXPECT_EQ(told.join(" ").toStdString(), offered.join(" ").toStdString());
}

TEST_F(Help, F1ShowsThePageBesideTheWindowWhichGoesOnWorking)
{
    openHelp();
    EXPECT_TRUE(browser().toPlainText().startsWith("The viewer\nShows tables as lines")) << "no mark of the file's";
    for (const char* const told : {"Tools and the mouse", "Ctrl++", "--supersample N"})
        EXPECT_TRUE(browser().toPlainText().contains(told)) << told;
    EXPECT_EQ(browser().toPlainText().indexOf('`'), -1);
    EXPECT_EQ(browser().toPlainText().indexOf("**"), -1);
    EXPECT_FALSE(help().isModal());
    type(XK_z);
    EXPECT_TRUE(action("&Zoom")->isChecked());
}

TEST_F(Help, ClosesWithEscapeAndOpensAgain)
{
    openHelp();
    typeKey(XK_Escape);
    EXPECT_TRUE(waitUntil([this] { return !help().isVisible(); }));
    openHelp();
}

TEST_F(Help, ALinkLeadsToTheDataFilesAndAltLeftBack)
{
    openHelp();
    browser().setSource(QUrl("data-files"));
    EXPECT_TRUE(browser().toPlainText().startsWith("Data files")) << browser().toPlainText().left(40).toStdString();
    EXPECT_TRUE(browser().toPlainText().contains("4,***")) << "what is marked as code stays as it is";
    pressKey(XK_Alt_L);
    typeKey(XK_Left);
    releaseKey(XK_Alt_L);
    EXPECT_TRUE(waitUntil([this] { return browser().toPlainText().startsWith("The viewer"); }));
}

TEST_F(Help, EveryLinkLeadsSomewhere)
{
    int links = 0;
    for (const char* const page : {"viewer", "data-files"}) {
        const QStringList parts = viewer::helpPage(page).split("<a href=\"").mid(1);
        links += int(parts.size());
        for (const QString& part : parts) {
            const QString target = part.section('"', 0, 0);
            const QString name = target.section('#', 0, 0);
            const QString html = viewer::helpPage(name.isEmpty() ? QString(page) : name);
            const QString anchor = target.section('#', 1);
            EXPECT_TRUE(html.contains("<a name=\"" + anchor + (anchor.isEmpty() ? "" : "\""))) << target.toStdString();
        }
    }
    EXPECT_GE(links, 8);
    EXPECT_EQ(viewer::helpPage("there-is-none"), QString());
}
