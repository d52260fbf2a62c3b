#pragma once

#include "FileState.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

namespace viewer {

/// Tells when a file has changed, also when another takes its name, as editors write, and when it is away meanwhile.
class FileWatch : public QObject {
    Q_OBJECT

public:
    explicit FileWatch(QObject* parent);

    /// Watches this file in place of another. `known` is its state that is no change.
    void watch(const QString& fileName, const FileState& known);

Q_SIGNALS:
    /// There is a file of that name, in a state that was not known until now.
    void changed();

private Q_SLOTS:
    void lookSoon();
    void look();

private:
    void watchPaths();

    QFileSystemWatcher m_watcher;
    QTimer m_soon;
    QString m_file;
    FileState m_known;
};

} // namespace viewer
