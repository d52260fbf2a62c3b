#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

class QMainWindow;
class QMenu;
class QPrintPreviewWidget;
class QPrinter;

namespace viewer {

/// The commands that bring what the window shows out of it: image export and printing.
class OutputCommands : public QObject {
    Q_OBJECT

public:
    /// Adds its commands to the menu; `window` owns the object and tells what came of them.
    OutputCommands(QMenu& menu, QMainWindow& window);
    ~OutputCommands() override;

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
    void tell(bool done, const QString& success);
    QPrinter& printerWithPage();
    void printOn(QPrinter& printer);

    QMainWindow& m_window;
    std::unique_ptr<QPrinter> m_printer;
    QPointer<QPrintPreviewWidget> m_waitingPreview;
};

} // namespace viewer
