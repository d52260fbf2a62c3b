// Focus, mouse and keys of a drawing area: who hears of them, and in which order.
#include "integration/glarea/MouseEvent.h"
#include "integrationmanager/KeyEvent.h"
#include "interfaces/KeyEventInterface.h"
#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using namespace velmora::sdk::integration;
using namespace velmora::test;

namespace {

class Recorder : public MouseEventListenerInterface, public KeyEventListenerInterface {
public:
    explicit Recorder(GLDrawArea& area) : m_area(area)
    {
        area.addMouseListener(this);
        area.addKeyboardListener(this);
    }
    ~Recorder() override
    {
        m_area.removeMouseListener(this);
        m_area.removeKeyboardListener(this);
    }

    void mouseMoved(MouseEventInterface& e, MouseEventObservableInterface& s) override { mouse("moved", e, s); }
    void buttonPressed(MouseEventInterface& e, MouseEventObservableInterface& s) override { mouse("pressed", e, s); }
    void buttonReleased(MouseEventInterface& e, MouseEventObservableInterface& s) override { mouse("released", e, s); }
    void buttonDoublePressed(MouseEventInterface& e, MouseEventObservableInterface& s) override
    {
        mouse("double", e, s);
    }
    void keyPressed(KeyEventInterface& e, KeyEventObservableInterface& s) override { key("key down", e, s); }
    void keyReleased(KeyEventInterface& e, KeyEventObservableInterface& s) override { key("key up", e, s); }

    bool has(const std::string& entry) const { return std::find(log.begin(), log.end(), entry) != log.end(); }

    std::vector<std::string> log;

private:
    void mouse(const char* what, MouseEventInterface& event, MouseEventObservableInterface& source)
    {
        EXPECT_EQ(&source, static_cast<MouseEventObservableInterface*>(&m_area));
        log.push_back(std::string(what) + " " + std::to_string(event.button()) + " at " + std::to_string(event.x()) +
                      "," + std::to_string(event.y()) + " with " + std::to_string(event.keyboardModifiers()));
    }
    void key(const char* what, KeyEventInterface& event, KeyEventObservableInterface& source)
    {
        EXPECT_EQ(&source, static_cast<KeyEventObservableInterface*>(&m_area));
        log.push_back(std::string(what) + " " + std::to_string(event.key()) + " with " +
                      std::to_string(event.keyboardModifiers()));
    }

    GLDrawArea& m_area;
};

const QEvent::Type MouseTypes[] = {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                                   QEvent::MouseMove};

/// Whether the area took it.
bool sendMouse(GLDrawArea& area, QEvent::Type type)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPoint(1, 2), button, button, Qt::NoModifier);
    return QCoreApplication::sendEvent(&area, &event) && event.isAccepted();
}

/// What listeners and slots of an area hear, in one list.
class Order : public MouseEventListenerInterface, public GLDrawAreaListenerInterface {
public:
    explicit Order(GLDrawArea& area) : m_area(area)
    {
        area.addMouseListener(this);
        area.addStateListener(this);
        area.connectButtonPressed([this](MouseEventInterface&) { log.push_back("signal pressed"); });
        area.connectButtonReleased([this](MouseEventInterface&) { log.push_back("signal released"); });
        area.connectButtonDoublePressed([this](MouseEventInterface&) { log.push_back("signal double"); });
        area.connectMouseMoved([this](MouseEventInterface&) { log.push_back("signal moved"); });
        area.connectDrawAreaFocusGained([this] { log.push_back("signal focus"); });
        area.connectDrawAreaExposed([this](bool) { log.push_back("signal exposed"); });
        // The area says its end twice: when it is told of it, and when it goes.
        m_atEnd = area.connectDrawAreaDestroyed([this] { log.push_back("signal destroyed"); });
    }
    ~Order() override
    {
        m_atEnd.disconnect();
        m_area.removeMouseListener(this);
        m_area.removeStateListener(this);
    }

    void mouseMoved(MouseEventInterface&, MouseEventObservableInterface&) override { log.push_back("listener moved"); }
    void buttonPressed(MouseEventInterface&, MouseEventObservableInterface&) override
    {
        log.push_back("listener pressed");
    }
    void buttonReleased(MouseEventInterface&, MouseEventObservableInterface&) override
    {
        log.push_back("listener released");
    }
    void buttonDoublePressed(MouseEventInterface&, MouseEventObservableInterface&) override
    {
        log.push_back("listener double");
    }
    void drawAreaExposed(GLDrawAreaInterface&, bool) override { log.push_back("listener exposed"); }
    void drawAreaDestroyed(GLDrawAreaInterface&) override { log.push_back("listener destroyed"); }
    void drawAreaFocusGained(GLDrawAreaInterface&) override { log.push_back("listener focus"); }

    std::vector<std::string> log;

private:
    GLDrawArea& m_area;
    Connection m_atEnd;
};

/// Collects the sources that the records name.
class SourceRecorder : public MouseEventListenerInterface, public KeyEventListenerInterface {
public:
    explicit SourceRecorder(GLDrawArea& area) : m_area(area)
    {
        area.addMouseListener(this);
        area.addKeyboardListener(this);
    }
    ~SourceRecorder() override
    {
        m_area.removeMouseListener(this);
        m_area.removeKeyboardListener(this);
    }

    void mouseMoved(MouseEventInterface& event, MouseEventObservableInterface&) override { add(event); }
    void buttonPressed(MouseEventInterface& event, MouseEventObservableInterface&) override { add(event); }
    void buttonReleased(MouseEventInterface& event, MouseEventObservableInterface&) override { add(event); }
    void buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface&) override { add(event); }
    void keyPressed(KeyEventInterface& event, KeyEventObservableInterface&) override { add(event); }
    void keyReleased(KeyEventInterface& event, KeyEventObservableInterface&) override { add(event); }

    std::vector<MouseEventObservableInterface*> mouseSources;
    std::vector<KeyEventObservableInterface*> keySources;

private:
    void add(MouseEventInterface& event) { mouseSources.push_back(dynamic_cast<intern::MouseEvent&>(event).source()); }
    void add(KeyEventInterface& event) { keySources.push_back(dynamic_cast<intern::KeyEvent&>(event).source()); }

    GLDrawArea& m_area;
};

/// Counts what a child does not keep to itself.
class InputCounter : public QWidget {
public:
    int mouseEvents = 0;
    int focusLosses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++mouseEvents; }
    void mouseReleaseEvent(QMouseEvent*) override { ++mouseEvents; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++mouseEvents; }
    void mouseMoveEvent(QMouseEvent*) override { ++mouseEvents; }
    void focusOutEvent(QFocusEvent*) override { ++focusLosses; }
};

/// An entry of the recorder's log, for a position of the area.
std::string entry(const char* what, const GLDrawArea& area, const QPoint& position, int modifiers = 0)
{
    const QPoint onScreen = inScreenPixels(area, position);
    return std::string(what) + " at " + std::to_string(onScreen.x()) + "," + std::to_string(onScreen.y()) + " with " +
           std::to_string(modifiers);
}

} // namespace

TEST_F(DrawArea, EveryFocusInIsAnnounced)
{
    QWidget window;
    QVBoxLayout layout(&window);
    GLDrawArea area(&window);
    GLDrawArea other(&window);
    layout.addWidget(&area);
    layout.addWidget(&other);
    Painter painter(area, Green);
    int emitted = 0;
    area.connectDrawAreaFocusGained([&] { ++emitted; });
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    other.setFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    emitted = painter.focusGains = 0;
    area.setFocus();
    EXPECT_TRUE(waitUntil([&] { return emitted == 1; }));
    EXPECT_EQ(painter.focusGains, 1);
    other.setFocus();
    processPending();
    EXPECT_EQ(emitted, 1);
}

TEST_F(DrawArea, OnlyAFocusInEventIsAStateChangeButTheSignalAlwaysComes)
{
    ToolkitWatch area;
    Painter painter(area, Green);
    int emitted = 0;
    area.connectDrawAreaFocusGained([&] { ++emitted; });
    QFocusEvent focusOut(QEvent::FocusOut);
    area.focusInEvent(&focusOut);
    EXPECT_EQ(painter.focusGains, 0);
    EXPECT_EQ(emitted, 1);
}

TEST_F(DrawArea, OfEveryKindListenersHearBeforeTheSignals)
{
    ToolkitWatch area;
    Order order(area);
    for (const QEvent::Type type : MouseTypes)
        sendMouse(area, type);
    QFocusEvent focusIn(QEvent::FocusIn);
    area.focusInEvent(&focusIn);
    QPaintEvent paint(area.rect());
    area.paintEvent(&paint);
    area.onDestroyed();
    EXPECT_EQ(order.log,
              (std::vector<std::string>{"listener pressed", "signal pressed", "listener released", "signal released",
                                        "listener double", "signal double", "listener moved", "signal moved",
                                        "listener focus", "signal focus", "listener exposed", "signal exposed",
                                        "listener destroyed", "signal destroyed"}));
}

TEST_F(DrawArea, MouseEventsReachNeitherItsParentNorTheToolkit)
{
    InputCounter window;
    GLDrawArea area(&window);
    for (const QEvent::Type type : MouseTypes)
        EXPECT_TRUE(sendMouse(area, type)) << "the toolkit's handler would have refused it";
    EXPECT_EQ(window.mouseEvents, 0);
}

TEST_F(DrawArea, LosingTheFocusIsAnnouncedToNobodyAndRepaintsNothing)
{
    InputCounter window;
    window.resize(200, 200);
    QVBoxLayout layout(&window);
    GLDrawArea area(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    layout.addWidget(&area);
    layout.addWidget(&other);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    area.setFocus();
    ASSERT_TRUE(waitUntil([&] { return area.hasFocus(); }));
    ASSERT_TRUE(comesToShow(area, Green));
    processPending();
    const size_t exposures = painter.exposures.size();
    const int gains = painter.focusGains;
    int emitted = 0;
    area.connectDrawAreaFocusGained([&] { ++emitted; });
    other.setFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    processPending();
    EXPECT_EQ(painter.exposures.size(), exposures);
    EXPECT_EQ(painter.focusGains, gains);
    EXPECT_EQ(emitted, 0);
    EXPECT_EQ(window.focusLosses, 0);
}

TEST_F(DrawArea, EachRecordNamesTheAreaAsItsSource)
{
    GLDrawArea area;
    SourceRecorder recorder(area);
    for (const QEvent::Type type : MouseTypes)
        sendMouse(area, type);
    const QEvent::Type keys[] = {QEvent::KeyPress, QEvent::KeyRelease};
    for (const QEvent::Type type : keys) {
        QKeyEvent event(type, Qt::Key_A, Qt::NoModifier);
        QCoreApplication::sendEvent(&area, &event);
    }
    EXPECT_EQ(recorder.mouseSources,
              std::vector<MouseEventObservableInterface*>(4, static_cast<MouseEventObservableInterface*>(&area)));
    EXPECT_EQ(recorder.keySources,
              std::vector<KeyEventObservableInterface*>(2, static_cast<KeyEventObservableInterface*>(&area)));
}

TEST_F(DrawArea, MouseInputReachesListenersAndSignals)
{
    GLDrawArea area;
    area.resize(200, 150);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    Recorder recorder(area);
    std::vector<int> signalled;
    area.connectButtonPressed([&](MouseEventInterface& e) { signalled.push_back(e.button()); });
    area.connectButtonReleased([&](MouseEventInterface& e) { signalled.push_back(10 + e.button()); });
    area.connectButtonDoublePressed([&](MouseEventInterface& e) { signalled.push_back(20 + e.button()); });
    int moves = 0;
    area.connectMouseMoved([&](MouseEventInterface& e) {
        ++moves;
        EXPECT_EQ(e.button(), MouseEventInterface::MouseButton_None);
    });

    click(area, QPoint(40, 30));
    EXPECT_TRUE(waitUntil([&] { return recorder.has(entry("released 1", area, QPoint(40, 30))); }));
    EXPECT_TRUE(recorder.has(entry("pressed 1", area, QPoint(40, 30))));
    EXPECT_TRUE(recorder.has(entry("moved 0", area, QPoint(40, 30))));
    EXPECT_GE(moves, 1);
    EXPECT_EQ(signalled, (std::vector<int>{1, 11}));

    signalled.clear();
    click(area, QPoint(90, 90), 3);
    EXPECT_TRUE(waitUntil([&] { return signalled.size() == 2; }));
    EXPECT_EQ(signalled, (std::vector<int>{3, 13}));

    signalled.clear();
    doubleClick(area, QPoint(10, 100));
    EXPECT_TRUE(waitUntil([&] { return signalled.size() == 4; }));
    EXPECT_EQ(signalled, (std::vector<int>{1, 11, 21, 11}));
    EXPECT_TRUE(recorder.has(entry("double 1", area, QPoint(10, 100))));
}

TEST_F(DrawArea, KeysReachItsListenersAndNotItsParent)
{
    class Parent : public QWidget {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent*) override { ++keys; }
    } window;
    QVBoxLayout layout(&window);
    GLDrawArea area(&window);
    layout.addWidget(&area);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(window));
    focusWindow(window);
    area.setFocus();
    ASSERT_TRUE(waitUntil([&] { return area.hasFocus(); }));
    Recorder recorder(area);
    pressKey(XK_Shift_L);
    typeKey(XK_a);
    releaseKey(XK_Shift_L);
    // The modifiers are the event's stored ones, in which the key that comes up still counts.
    EXPECT_TRUE(waitUntil([&] { return recorder.has("key up " + std::to_string(Qt::Key_Shift) + " with 1"); }));
    EXPECT_TRUE(recorder.has("key down " + std::to_string(Qt::Key_A) + " with 1"));
    EXPECT_TRUE(recorder.has("key up " + std::to_string(Qt::Key_A) + " with 1"));
    EXPECT_EQ(window.keys, 0);
}

TEST_F(DrawArea, ARemovedListenerHearsNothingMore)
{
    GLDrawArea area;
    area.resize(100, 100);
    Painter painter(area, Green);
    ASSERT_TRUE(showAndWait(area));
    int signalled = 0;
    area.connectButtonReleased([&](MouseEventInterface&) { ++signalled; });
    auto recorder = std::make_unique<Recorder>(area);
    Recorder* const gone = recorder.get();
    area.removeMouseListener(gone);
    recorder->log.clear();
    click(area, QPoint(50, 50));
    ASSERT_TRUE(waitUntil([&] { return signalled == 1; }));
    EXPECT_TRUE(recorder->log.empty());
}
