// The viewer to be soaked: when its window is closed, a new one opens. For each line "rest" on its
// standard input it comes to rest and writes what it holds as one line on its standard output; the
// end of the input ends it.

#include "EngineSession.h"
#include "tests/soak/GLCounts.h"
#include "tests/soak/Rest.h"

#include <QApplication>
#include <QPixmapCache>
#include <QSocketNotifier>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

using namespace velmora::test;

namespace {

long kilobytes(const char* name)
{
    std::ifstream file("/proc/self/smaps_rollup");
    std::string word;
    while (file >> word)
        if (word == name && file >> word)
            return std::stol(word);
    return 0;
}

long openFiles()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

void tellWhatIsHeld()
{
    QPixmapCache::clear(); // the toolkit's, which grows to its limit
    malloc_trim(0);
    const struct mallinfo2 heap = mallinfo2();
    std::printf("heap_kb=%zu memory_kb=%ld open_files=%ld", (heap.uordblks + heap.hblkhd) / 1024,
                kilobytes("Anonymous:"), openFiles());
    for (const auto& count : glCounts())
        std::printf(" gl_%s=%ld", count.first.c_str(), count.second);
    std::printf("\n");
    std::fflush(stdout);
}

/// The toolkit makes a cursor when it is first shown, and keeps it: all of them, so that a later one is
/// no growth. There must be a window.
void showEveryCursor()
{
    for (int shape = 0; shape <= Qt::LastCursor; ++shape) {
        QApplication::setOverrideCursor(static_cast<Qt::CursorShape>(shape));
        QApplication::restoreOverrideCursor();
    }
}

/// Reads what the person at the other end wants.
class Orders : public QObject {
public:
    explicit Orders(Rest& rest) : m_rest(rest), m_notifier(STDIN_FILENO, QSocketNotifier::Read) {}

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (receiver == &m_notifier && event->type() == QEvent::SockAct)
            read();
        return false;
    }
    void watch() { m_notifier.installEventFilter(this); }
    bool areOver() const { return m_over; }

private:
    void read()
    {
        char text[64];
        const ssize_t length = ::read(STDIN_FILENO, text, sizeof text);
        if (length > 0) {
            m_rest.begin();
        } else if (length == 0) {
            m_over = true;
            m_notifier.setEnabled(false);
            QApplication::quit();
        }
    }

    Rest& m_rest;
    QSocketNotifier m_notifier;
    bool m_over = false;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setOrganizationName("Velmora");
    application.setApplicationName("Soak");
    application.setQuitOnLastWindowClosed(false);
    viewer::EngineSession session(argc, argv);
    if (!session.error().isEmpty() || argc < 2) {
        std::fprintf(stderr, "soaked_viewer: %s\n", session.error().toUtf8().constData());
        return 1;
    }
    session.makeDrawingSlow();
    fcntl(STDIN_FILENO, F_SETFL, O_NONBLOCK); // an event may come again although what it told of is read
    Rest rest(QString::fromLocal8Bit(argv[1]), &tellWhatIsHeld);
    showEveryCursor();
    Orders orders(rest);
    orders.watch();
    // Closing the window in the middle of work ends the event loop, and elsewhere the program.
    int code = 0;
    while (!orders.areOver())
        code = QApplication::exec();
    return code;
}
