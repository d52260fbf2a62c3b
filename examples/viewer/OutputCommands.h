#pragma once

#include <QObject>
#include <memory>

class QMainWindow;
class QMenu;
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

private:
    bool isEngineFree();
    void tell(bool done, const QString& success);
    QPrinter& printerWithPage();

    QMainWindow& m_window;
    std::unique_ptr<QPrinter> m_printer;
    bool m_paintingPreview = false;
};

} // namespace viewer
