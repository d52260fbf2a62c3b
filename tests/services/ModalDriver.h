#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>

class QWidget;

namespace velmora::test {

/// Does what a person does while a modal window is open: while the code under test runs the
/// window's own event loop, it waits until the window can be used, acts on it once and waits for
/// the window to go. A window that stays is closed after thirty seconds, so that a test fails instead
/// of hanging.
class ModalDriver : public QObject {
public:
    /// `act` gets the modal window, which is on the screen and has the input focus.
    explicit ModalDriver(std::function<void(QWidget&)> act);

    bool hasActed() const { return m_acted; }
    bool hadToClose() const { return m_hadToClose; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void actOn(QWidget& window);
    void giveUp();

    std::function<void(QWidget&)> m_act;
    const bool m_managed;
    QElapsedTimer m_clock;
    bool m_acted = false;
    bool m_hadToClose = false;
};

/// Acts when the object that owns it is destroyed, which for a modal window is after its event loop
/// and before the code under test goes on.
class AtItsEnd : public QObject {
public:
    AtItsEnd(QObject* owner, std::function<void()> act) : QObject(owner), m_act(std::move(act)) {}
    ~AtItsEnd() override { m_act(); }

private:
    std::function<void()> m_act;
};

} // namespace velmora::test
