#pragma once

#include "MainWindow.h"

#include <QObject>
#include <QString>
#include <memory>

namespace velmora::test {

/// Keeps a window of the viewer open: one that a person has closed is followed by a new one. Asked to
/// rest, it ends whatever goes on, shows the reference file in a new window and calls back once that
/// is drawn, so that one rest is like another.
class Rest : public QObject {
public:
    /// `atRest` is called with no window's event loop running but the application's own.
    Rest(const QString& referenceFile, void (*atRest)());
    ~Rest() override;

    void begin();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Step { None, End, Load, Draw };

    bool endOneThing();
    void newWindow();
    void goOn();

    QString m_file;
    void (*m_atRest)();
    std::unique_ptr<viewer::MainWindow> m_window;
    Step m_step = Step::None;
    int m_quiet = 0;
};

} // namespace velmora::test
