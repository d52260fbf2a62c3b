#include "AboutFilePanel.h"

#include "engine/VelUtil.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace viewer {

namespace {

constexpr int PropertyFields = 2; // a grid's lines are names and values, a table's tell more
constexpr int LinesOfNotes = 3;
constexpr int RoomInRow = 6; // pixels
// The columns of the list that hold numbers.
constexpr int FirstNumber = 3;
constexpr int LastNumber = 6;

QStringList fieldsOf(const QString& line)
{
    return line.split(QLatin1Char('\t'));
}

QPlainTextEdit* newNotes()
{
    QPlainTextEdit* const notes = new QPlainTextEdit;
    notes->setReadOnly(true);
    notes->setTabChangesFocus(true);
    notes->setMaximumHeight(LinesOfNotes * notes->fontMetrics().lineSpacing() + 16);
    return notes;
}

QTableWidget* newTable()
{
    QTableWidget* const table = new QTableWidget;
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + RoomInRow);
    table->horizontalHeader()->setStretchLastSection(true);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    return table;
}

} // namespace

AboutFilePanel::AboutFilePanel(QWidget* parent)
    : QDockWidget(tr("About This File"), parent), m_notes(newNotes()), m_table(newTable())
{
    setObjectName(QLatin1String("aboutFile"));
    toggleViewAction()->setText(tr("&About This File"));
    QWidget* const content = new QWidget;
    QVBoxLayout* const all = new QVBoxLayout(content);
    all->addWidget(m_notes);
    all->addWidget(m_table, 1);
    setWidget(content);
    QAction* const copy = new QAction(tr("&Copy"), m_table);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut); // the notes have a copy of their own
    m_table->addAction(copy);
    connect(copy, SIGNAL(triggered()), this, SLOT(copy()));
    connect(this, SIGNAL(visibilityChanged(bool)), this, SLOT(refresh()));
}

QString AboutFilePanel::countOfNotes()
{
    const QByteArray notes = VelUtilDataNotes();
    if (notes.isEmpty())
        return QString();
    const int count = notes.count('\n') + 1;
    return count == 1 ? tr("1 note: see View > About This File")
                      : tr("%1 notes: see View > About This File").arg(count);
}

void AboutFilePanel::refresh()
{
    if (!isVisible())
        return;
    const QByteArray notes = VelUtilDataNotes();
    const QByteArray details = VelUtilDataDetails();
    if (!m_told.isNull() && m_told == notes + '\n' + details)
        return;
    m_told = notes + '\n' + details;
    m_notes->setPlainText(details.isEmpty() ? tr("No file is open.") : QString::fromUtf8(notes));
    m_notes->setVisible(details.isEmpty() || !notes.isEmpty());
    m_table->setVisible(!details.isEmpty());
    fill(QString::fromUtf8(details).split(QLatin1Char('\n')));
}

void AboutFilePanel::fill(const QStringList& lines)
{
    const QStringList titles = fieldsOf(lines.first());
    const int firstLine = titles.size() > PropertyFields ? 1 : 0; // the first line of a table has the titles
    m_table->clear();
    m_table->setRowCount(lines.size() - firstLine);
    m_table->setColumnCount(titles.size());
    m_table->setHorizontalHeaderLabels(titles);
    m_table->horizontalHeader()->setVisible(firstLine > 0);
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const QStringList fields = fieldsOf(lines[row + firstLine]);
        for (int column = 0; column < fields.size(); ++column) {
            QTableWidgetItem* const item = new QTableWidgetItem(fields[column]);
            const bool isNumber = firstLine > 0 && column >= FirstNumber && column <= LastNumber;
            item->setTextAlignment((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
            m_table->setItem(row, column, item);
        }
    }
    m_table->resizeColumnsToContents();
}

void AboutFilePanel::copy()
{
    QModelIndexList cells = m_table->selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end());
    QString text;
    for (int i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += QLatin1Char(cells[i].row() == cells[i - 1].row() ? '\t' : '\n');
        text += cells[i].data().toString();
    }
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

} // namespace viewer
