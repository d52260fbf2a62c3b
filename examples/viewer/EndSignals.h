#pragma once

#include <QObject>

namespace viewer {

/// While one lives, a signal that asks the process to end (SIGHUP, SIGINT, SIGTERM) does not end it
/// but interrupts the engine, at once or as soon as it is busy again, so that the work unwinds and
/// removes what it has not completed. A signal that was ignored stays so. One at a time; needs the
/// engine, on the GUI thread.
class EndSignals : public QObject {
    Q_OBJECT

public:
    /// When the process has no file handles left, signals keep their default action.
    EndSignals();
    /// Signals have their default action again.
    ~EndSignals() override;

private Q_SLOTS:
    void interruptEngine();
};

/// Whether such a signal has come. Asked by code that works or waits without the engine.
bool endWasAsked();
/// Ends the process by the signal that has come, so that its parent process sees what ended it (a
/// shell: 130 after SIGINT, 143 after SIGTERM). Returns when none has.
void endAsAsked();

} // namespace viewer
