#pragma once

#include <QObject>
#include <cstdio>
#include <string>

namespace velmora::test {

/// Sees what reaches the objects of the program behind the event monitor, whose filter is installed
/// later and asked first. Counts events and, if it has a file, writes down those of the widgets.
///
/// Left out of the file is what depends on the time that passes: timers, what the toolkit merges or
/// repeats as it finds time for it (painting, laying out), what the window manager has a hand in (the
/// active window, and the pointer's coming and going over windows that come and go), and what happens in file dialogs,
/// which are filled by a thread. While there is a file, nothing comes by itself after a time: no tool tip, and messages
/// stay in the status bar.
class EventRecorder : public QObject {
public:
    /// Without a file name it only counts.
    explicit EventRecorder(const std::string& fileName);
    ~EventRecorder() override;
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    /// Writes a line that tells where in the session the following events are.
    void mark(const std::string& text);
    /// All events but timers and sockets, so that it stands still when nothing happens.
    long eventCount() const { return m_events; }
    long keyPressCount() const { return m_keyPresses; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    std::FILE* m_file = nullptr;
    long m_events = 0;
    long m_keyPresses = 0;
};

} // namespace velmora::test
