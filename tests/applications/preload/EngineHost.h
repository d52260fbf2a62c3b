#pragma once

#include <QObject>
#include <string>

namespace velmora::test {

/// The host's part: starts the engine in a program that knows nothing of it, and lets the engine work
/// every two seconds.
class EngineHost : public QObject {
public:
    /// Starts the engine. `data` is the file that it reads as its work; `heldBack` what the monitor
    /// holds back during an interruption, "everything" or "input".
    EngineHost(std::string data, const std::string& heldBack);
    /// Stops the engine.
    ~EngineHost() override;

    void setWorking(bool working);
    /// "WORKS INTERRUPTED": how often it worked, and how often it was asked to stop.
    std::string done() const;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::string m_data;
    int m_timer = 0;
    long m_works = 0;
    long m_interrupted = 0;
};

} // namespace velmora::test
