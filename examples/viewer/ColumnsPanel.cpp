#include "ColumnsPanel.h"

#include "LineSample.h"
#include "WaitCursor.h"
#include "engine/VelUtil.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace viewer {

namespace {

// The fields of a column as the engine tells them.
enum Field { Name, Unit, Line, Color, Dashes, FieldCount };

constexpr int LineRole = Qt::UserRole;
constexpr int ShortestName = 12; // characters

QString titleOf(const QStringList& fields)
{
    return fields[Unit].isEmpty() ? fields[Name] : ColumnsPanel::tr("%1 (%2)").arg(fields[Name], fields[Unit]);
}

QComboBox* newColumnChoice()
{
    QComboBox* const choice = new QComboBox;
    // A long name does not widen the panel.
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumContentsLength(ShortestName);
    choice->setToolTip(ColumnsPanel::tr("The column along the horizontal axis"));
    return choice;
}

QTreeWidget* newLineList()
{
    QTreeWidget* const lines = new QTreeWidget;
    lines->setRootIsDecorated(false);
    lines->setUniformRowHeights(true); // or each of a thousand lines would be measured
    lines->setIconSize(lineSampleSize());
    lines->header()->hide();
    lines->setAccessibleName(ColumnsPanel::tr("Lines"));
    lines->setContextMenuPolicy(Qt::ActionsContextMenu);
    return lines;
}

} // namespace

ColumnsPanel::ColumnsPanel(QWidget* parent)
    : QDockWidget(tr("Columns"), parent), m_choices(new QWidget), m_nothing(new QLabel),
      m_horizontal(newColumnChoice()), m_lines(newLineList())
{
    setObjectName(QLatin1String("columns"));
    toggleViewAction()->setText(tr("&Columns"));
    QWidget* const content = new QWidget;
    QVBoxLayout* const all = new QVBoxLayout(content);
    all->addWidget(m_nothing, 0, Qt::AlignTop);
    all->addWidget(m_choices, 1);
    m_nothing->setWordWrap(true);
    QVBoxLayout* const choices = new QVBoxLayout(m_choices);
    choices->setContentsMargins(0, 0, 0, 0);
    QLabel* const over = new QLabel(tr("&Horizontal axis:"));
    over->setBuddy(m_horizontal);
    choices->addWidget(over);
    choices->addWidget(m_horizontal);
    choices->addWidget(m_lines, 1);
    QHBoxLayout* const buttons = new QHBoxLayout;
    choices->addLayout(buttons);
    QPushButton* const allLines = new QPushButton(tr("All"));
    QPushButton* const noLines = new QPushButton(tr("None"));
    buttons->addWidget(allLines);
    buttons->addWidget(noLines);
    setWidget(content);
    QAction* const alone = new QAction(tr("&Show Alone, or All Again"), m_lines);
    alone->setShortcuts(QList<QKeySequence>() << QKeySequence(Qt::Key_Return) << QKeySequence(Qt::Key_Enter));
    alone->setShortcutContext(Qt::WidgetShortcut);
    m_lines->addAction(alone);
    connect(alone, SIGNAL(triggered()), this, SLOT(showAlone()));
    connect(toggleViewAction(), SIGNAL(triggered(bool)), this, SLOT(takeFocus(bool)));
    connect(allLines, SIGNAL(clicked()), this, SLOT(showAll()));
    connect(noLines, SIGNAL(clicked()), this, SLOT(showNone()));
    connect(m_horizontal, SIGNAL(activated(int)), this, SLOT(chooseHorizontal(int)));
    connect(m_lines, SIGNAL(itemChanged(QTreeWidgetItem*, int)), this, SLOT(showOrHide(QTreeWidgetItem*)));
    connect(this, SIGNAL(visibilityChanged(bool)), this, SLOT(refresh()));
}

void ColumnsPanel::refresh()
{
    if (!isVisible())
        return;
    const QByteArray details = VelUtilColumnDetails();
    if (details != m_listed) {
        m_listed = details;
        list(QString::fromUtf8(details).split(QLatin1Char('\n')));
    }
    checkShownLines();
    const bool hasData = *VelUtilDataDescription() != '\0';
    m_nothing->setText(hasData ? tr("A grid has no columns to choose from.")
                               : tr("Open a table to choose its columns."));
    m_nothing->setVisible(m_listed.isEmpty());
    m_choices->setVisible(!m_listed.isEmpty());
}

void ColumnsPanel::list(const QStringList& columns)
{
    const bool wasBlocked = m_lines->blockSignals(true);
    m_horizontal->clear();
    m_horizontal->addItem(tr("Row number"));
    m_lines->clear();
    int horizontal = 0;
    for (const QString& column : columns) {
        const QStringList fields = column.split(QLatin1Char('\t'));
        if (fields.size() < FieldCount)
            continue;
        m_horizontal->addItem(titleOf(fields));
        if (fields[Line] == QLatin1String("0"))
            horizontal = m_horizontal->count() - 1;
        else
            listLine(fields);
    }
    m_horizontal->setCurrentIndex(horizontal);
    m_lines->blockSignals(wasBlocked);
}

void ColumnsPanel::listLine(const QStringList& fields)
{
    QTreeWidgetItem* const item = new QTreeWidgetItem(m_lines, QStringList(titleOf(fields)));
    item->setToolTip(0, titleOf(fields));
    item->setIcon(0, lineSample(fields[Color], fields[Dashes]));
    item->setData(0, LineRole, fields[Line].toInt());
    item->setCheckState(0, Qt::Checked);
}

void ColumnsPanel::checkShownLines()
{
    const bool wasBlocked = m_lines->blockSignals(true);
    for (int i = 0; i < m_lines->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_lines->topLevelItem(i);
        const bool isShown = VelUtilLineIsShown(item->data(0, LineRole).toInt()) != 0;
        item->setCheckState(0, isShown ? Qt::Checked : Qt::Unchecked);
    }
    m_lines->blockSignals(wasBlocked);
}

void ColumnsPanel::showOrHide(QTreeWidgetItem* item)
{
    VelUtilLineShow(item->data(0, LineRole).toInt(), item->checkState(0) == Qt::Checked ? 1 : 0);
    Q_EMIT chosen();
}

void ColumnsPanel::showAll()
{
    VelUtilLineShowAll(1);
    checkShownLines();
    Q_EMIT chosen();
}

void ColumnsPanel::showNone()
{
    VelUtilLineShowAll(0);
    checkShownLines();
    Q_EMIT chosen();
}

void ColumnsPanel::showAlone()
{
    const QTreeWidgetItem* const item = m_lines->currentItem();
    if (!item)
        return;
    VelUtilLineShowAlone(item->data(0, LineRole).toInt());
    checkShownLines();
    Q_EMIT chosen();
}

// Who opens the panel by the keys goes on in it by the keys.
void ColumnsPanel::takeFocus(bool shown)
{
    if (shown)
        m_lines->setFocus(Qt::ShortcutFocusReason);
}

void ColumnsPanel::chooseHorizontal(int place)
{
    const bool done = [&] {
        const WaitCursor waitCursor;
        return VelUtilColumnSetHorizontal(place) != 0;
    }();
    if (!done && !VelUtilWasInterrupted())
        VelUtilDialogLastMessageBox();
    VelUtilLastErrorMessageClear();
    m_listed.clear(); // so that the choice shows the axis that there is, also when it was not changed
    refresh();
    Q_EMIT chosen();
}

} // namespace viewer
