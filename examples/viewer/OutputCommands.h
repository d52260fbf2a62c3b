#pragma once

#include "interfaces/Signal.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>

class QAction;
class QMainWindow;
class QMenu;
class QPrintPreviewWidget;
class QPrinter;
class QStatusBar;

namespace viewer {

/// The commands that bring what the window shows out of it: image export and printing.
class OutputCommands : public QObject {
    Q_OBJECT

public:
    /// Adds its commands to the menu; `window` owns the object and tells what came of them.
    OutputCommands(QMenu& menu, QMainWindow& window);
    ~OutputCommands() override;

    /// Whether there is something to export and to print.
    void setEnabled(bool enabled);
    /// Images are offered a name after this file's.
    void setDataFile(const QString& fileName) { m_dataFile = fileName; }

Q_SIGNALS:
    /// The engine has a page that a person has set up, and shows it.
    void pageWasSetUp();

private Q_SLOTS:
    void exportImage();
    void setUpPage();
    void preview();
    void print();
    void paintPreview(QPrinter* printer);
    void updateWaitingPreview();
    void printWhenFree();

private:
    bool isEngineFree();
    void workEnded();
    void tell(bool done, const QString& success);
    QString chooseImageFile();
    QPrinter& printerWithPage();
    void printOn(QPrinter& printer);

    QMainWindow& m_window;
    const QPointer<QStatusBar> m_notes; ///< the window's
    QAction* m_export;
    QAction* m_preview;
    QAction* m_print;
    QString m_dataFile;
    QString m_imageFolder; ///< of the image exported last
    bool m_previewFailed = false;
    std::unique_ptr<QPrinter> m_printer;
    QPointer<QPrintPreviewWidget> m_waitingPreview;
    boost::signals2::scoped_connection m_notBusy;
};

} // namespace viewer
