#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace viewer {

/// The files that were opened last, newest first, kept from run to run, as a menu.
class RecentFiles : public QObject {
    Q_OBJECT

public:
    RecentFiles(QMenu& menu, QObject* parent);

    void add(const QString& fileName);
    void remove(const QString& fileName);
    QStringList files() const;

Q_SIGNALS:
    void chosen(const QString& fileName);

private Q_SLOTS:
    void open();

private:
    void save(const QStringList& files);
    void fillMenu();

    QMenu& m_menu;
};

} // namespace viewer
