#pragma once

#include <QByteArray>
#include <QDockWidget>
#include <QStringList>

class QComboBox;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace viewer {

/// Lists the columns of the table that is shown, also those that the legend has no room for, and lets a person choose
/// which of them are drawn and which one is the horizontal axis.
class ColumnsPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit ColumnsPanel(QWidget* parent);

Q_SIGNALS:
    /// A person has chosen here.
    void chosen();

public Q_SLOTS:
    /// Lists what there is now. It waits until the panel shows.
    void refresh();

private Q_SLOTS:
    void chooseHorizontal(int place);
    void showOrHide(QTreeWidgetItem* item);
    void showAll();
    void showNone();
    void showAlone();
    void takeFocus(bool shown);

private:
    void list(const QStringList& columns);
    void listLine(const QStringList& fields);
    void checkShownLines();

    QWidget* m_choices;
    QLabel* m_nothing; ///< says why there is nothing to choose
    QComboBox* m_horizontal;
    QTreeWidget* m_lines;
    QByteArray m_listed;
};

} // namespace viewer
