#pragma once

#include "FileState.h"

#include <QObject>
#include <QString>
#include <QTimer>

class QAction;
class QMenu;
class QPushButton;
class QStatusBar;

namespace viewer {

class FileWatch;

/// Reads the shown file again and keeps the view. Offers it in the status bar when the file has changed. It waits while
/// the engine works and while a dialog is open. When it fails, what is shown stays, and a message says why.
class ReloadCommand : public QObject {
    Q_OBJECT

public:
    /// Adds its command to the menu; `parent` owns the object.
    ReloadCommand(QMenu& menu, QStatusBar& bar, QObject* parent);

    /// The file that is shown; `read` is the state that it had before it was read.
    void setFile(const QString& fileName, const FileState& read);

Q_SIGNALS:
    void reloaded(const QString& fileName);

private Q_SLOTS:
    void reload();
    void offer();

private:
    bool read();

    QStatusBar& m_bar;
    QAction* m_action;
    QPushButton* m_offer;
    FileWatch* m_watch;
    QTimer m_retry;
    QString m_file;
};

} // namespace viewer
