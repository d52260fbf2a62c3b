#include "HelpWindow.h"

#include "HelpPage.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace viewer {

namespace {

/// Shows pages of the help by their names.
class HelpBrowser : public QTextBrowser {
public:
    QVariant loadResource(int type, const QUrl& name) override
    {
        const QString page = helpPage(name.path().section(QLatin1Char('/'), -1));
        return page.isEmpty() ? QTextBrowser::loadResource(type, name) : QVariant(page);
    }
};

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Help - Viewer"));
    resize(760, 680);
    QTextBrowser* const browser = new HelpBrowser;
    browser->setAccessibleName(tr("Help"));
    browser->setSource(QUrl(QLatin1String("qrc:/help/viewer")));
    QDialogButtonBox* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const back = buttons->addButton(tr("&Back"), QDialogButtonBox::ActionRole);
    back->setEnabled(false);
    connect(back, SIGNAL(clicked()), browser, SLOT(backward()));
    connect(browser, SIGNAL(backwardAvailable(bool)), back, SLOT(setEnabled(bool)));
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));
    QVBoxLayout* const rows = new QVBoxLayout(this);
    rows->addWidget(browser);
    rows->addWidget(buttons);
    browser->setFocus();
}

void HelpWindow::present()
{
    show();
    raise();
    activateWindow();
}

} // namespace viewer
