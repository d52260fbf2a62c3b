#include "RecentFiles.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace viewer {

namespace {

constexpr int MostFiles = 8;
const char* const SettingsKey = "recentFiles";

QString nameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

/// The names, and the folders of those that would be the same.
QStringList menuTexts(const QStringList& paths)
{
    QStringList names;
    for (const QString& path : paths)
        names.append(nameOf(path));
    QStringList texts;
    for (const QString& path : paths) {
        const bool isOneOfMany = names.count(nameOf(path)) > 1;
        const QString folder = QDir::toNativeSeparators(QFileInfo(path).absolutePath());
        QString text = isOneOfMany ? RecentFiles::tr("%1 - %2").arg(nameOf(path), folder) : nameOf(path);
        texts.append(text.replace(QLatin1Char('&'), QLatin1String("&&"))); // one alone would underline
    }
    return texts;
}

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
    const QStringList texts = menuTexts(list);
    for (int i = 0; i < list.size(); ++i) {
        QAction* const action = m_menu.addAction(texts[i], this, SLOT(open()));
        action->setData(list[i]);
        action->setStatusTip(list[i]);
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
