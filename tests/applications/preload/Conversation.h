#pragma once

#include "tests/applications/preload/EngineHost.h"
#include "tests/applications/preload/EventRecorder.h"

#include <QSocketNotifier>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace velmora::test {

/// Answers the questions that come through a socket, one a line, in whichever event loop of the
/// program is running. A program that does not answer is frozen.
///
///   targets, open, problems   see ProgramState.h
///   keys                      how many key presses have reached the program
///   work on, work off         whether the engine works every two seconds
///   done                      how often the engine has worked, and how often it was interrupted
///   mark TEXT                 a line in the record of events
///   repaint                   asks for a complete repaint
///   settle                    answers when nothing has happened for a moment, or after three seconds
class Conversation : public QSocketNotifier {
public:
    /// `engine` may be null.
    Conversation(int socket, EventRecorder& recorder, EngineHost* engine);

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void read();
    void answer(const std::string& question);
    void say(const std::string& text) const;

    EventRecorder& m_recorder;
    EngineHost* m_engine;
    std::string m_input;
    int m_settling = 0;
    int m_ticks = 0;
    int m_quietTicks = 0;
    long m_seenEvents = 0;
};

} // namespace velmora::test
