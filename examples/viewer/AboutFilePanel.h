#pragma once

#include <QByteArray>
#include <QDockWidget>
#include <QStringList>

class QPlainTextEdit;
class QTableWidget;

namespace viewer {

/// Tells about the data that are shown: each column of a table, or the properties of a grid, and what a person should
/// know about how the file was read. All of it can be copied.
class AboutFilePanel : public QDockWidget {
    Q_OBJECT

public:
    explicit AboutFilePanel(QWidget* parent);

    /// Says briefly how many notes there are and that the panel has them; empty without one.
    static QString countOfNotes();

public Q_SLOTS:
    /// Tells of what there is now. It waits until the panel shows.
    void refresh();

private Q_SLOTS:
    /// The selected cells, as lines with tabs between the cells.
    void copy();

private:
    void fill(const QStringList& lines);

    QPlainTextEdit* m_notes;
    QTableWidget* m_table;
    QByteArray m_told;
};

} // namespace viewer
