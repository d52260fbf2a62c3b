#include "RecentFiles.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace viewer {

namespace {

constexpr int MostFiles = 8;
const char* const SettingsKey = "recentFiles";

} // namespace

RecentFiles::RecentFiles(QMenu& menu, QObject* parent) : QObject(parent), m_menu(menu)
{
    fillMenu();
}

QStringList RecentFiles::files() const
{
    return QSettings().value(QLatin1String(SettingsKey)).toStringList();
}

void RecentFiles::add(const QString& fileName)
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    QStringList list = files();
    list.removeAll(path);
    list.prepend(path);
    save(list.mid(0, MostFiles));
}

void RecentFiles::remove(const QString& fileName)
{
    QStringList list = files();
    list.removeAll(QFileInfo(fileName).absoluteFilePath());
    save(list);
}

void RecentFiles::save(const QStringList& list)
{
    QSettings().setValue(QLatin1String(SettingsKey), list);
    fillMenu();
}

void RecentFiles::fillMenu()
{
    m_menu.clear();
    const QStringList list = files();
    for (const QString& path : list) {
        QAction* const action = m_menu.addAction(QFileInfo(path).fileName(), this, SLOT(open()));
        action->setData(path);
        action->setStatusTip(path);
    }
    m_menu.setEnabled(!list.isEmpty());
}

void RecentFiles::open()
{
    const QAction* const action = qobject_cast<const QAction*>(sender());
    if (action)
        Q_EMIT chosen(action->data().toString());
}

} // namespace viewer
