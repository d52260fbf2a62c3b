// A program that something is wrong with: shows that try_application finds it.
//   troubled_program TROUBLE      with one of the names below

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <csignal>
#include <cstdlib>
#include <map>
#include <string>

namespace {

constexpr int MillisecondsUntilTrouble = 500;

/// Does not repaint when what it shows has changed.
class Picture : public QWidget {
public:
    Picture() { setMinimumSize(100, 100); }
    QColor colour = Qt::blue;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), colour); }
};

/// A dialog that nobody can close.
class Obstacle : public QDialog {
public:
    void done(int) override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

class KeySwallower : public QObject {
protected:
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::KeyPress; }
};

class Window : public QWidget {
public:
    explicit Window(const std::string& trouble) : m_trouble(troubles().at(trouble)), m_button(QLatin1String("A button"))
    {
        QVBoxLayout* const layout = new QVBoxLayout(this); // owned by this widget
        layout->addWidget(&m_button);
        layout->addWidget(&m_picture);
        startTimer(MillisecondsUntilTrouble);
    }

protected:
    void timerEvent(QTimerEvent*) override { (this->*m_trouble)(); }

private:
    using Trouble = void (Window::*)();

    static const std::map<std::string, Trouble>& troubles()
    {
        static const std::map<std::string, Trouble> all = {
            {"none", &Window::doNothing},
            {"frozen", &Window::freeze},
            {"crashing", &Window::crash},
            {"pressed", &Window::leaveButtonDown},
            {"grabbing", &Window::grab},
            {"unpainted", &Window::forgetToPaint},
            {"obstructed", &Window::obstruct},
            {"deaf", &Window::swallowKeys},
            {"looks-different", &Window::lookDifferent},
            {"hears-more", &Window::hearMore},
        };
        return all;
    }
    static bool isWatched()
    {
        const char* const monitor = std::getenv("VELMORA_TRY_MONITOR");
        return monitor && *monitor;
    }

    void doNothing() {}
    void freeze()
    {
        for (volatile bool forever = true; forever;) {
        }
    }
    void crash() { std::raise(SIGSEGV); }
    void leaveButtonDown() { m_button.setDown(true); }
    void grab() { grabMouse(); }
    void forgetToPaint() { m_picture.colour = Qt::green; }
    void obstruct() { Obstacle().exec(); }
    void swallowKeys() { qApp->installEventFilter(&m_swallower); }
    void lookDifferent()
    {
        m_picture.colour = isWatched() ? Qt::red : Qt::yellow;
        m_picture.update();
    }
    void hearMore()
    {
        if (isWatched())
            QCoreApplication::postEvent(&m_picture, new QEvent(QEvent::ToolBarChange)); // the queue owns it
    }

    Trouble m_trouble;
    QPushButton m_button;
    Picture m_picture;
    KeySwallower m_swallower;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Window window(argc > 1 ? argv[1] : "none");
    window.show();
    return QApplication::exec();
}
