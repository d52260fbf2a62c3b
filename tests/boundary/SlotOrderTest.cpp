// The order of the virtual operations of each interface. Engine, binding and host are built apart and
// find an operation by its place in the table of virtual functions, so a place is a promise.
#include "base/TimerAbstract.h"
#include "integration/Manager.h"
#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/offscreen/ExportableImageInterface.h"
#include "integrationmanager/ManagerAbstract.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/DialogManagerInterface.h"
#include "interfaces/EventManagerInterface.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/GLDrawAreaInterface.h"
#include "interfaces/GLDrawAreaListenerInterface.h"
#include "interfaces/KeyEventInterface.h"
#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/KeyEventObservableInterface.h"
#include "interfaces/ManagerInterface.h"
#include "interfaces/MouseEventInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/MouseEventObservableInterface.h"
#include "interfaces/MouseWheelEventInterface.h"
#include "interfaces/OffscreenImageInterface.h"
#include "interfaces/OnIdleListenerInterface.h"
#include "interfaces/OnIdleObservableInterface.h"
#include "interfaces/PageInterface.h"
#include "interfaces/PageManagerInterface.h"
#include "interfaces/ServiceRepositoryInterface.h"
#include "interfaces/StopButtonInterface.h"
#include "interfaces/TimerInterface.h"
#include "interfaces/TimerListenerInterface.h"
#include "interfaces/services/CursorShapeServiceInterface.h"
#include "interfaces/services/ManagerMiscServiceInterface.h"
#include "interfaces/services/MessageBoxServiceInterface.h"
#include "interfaces/services/OffscreenImageServiceInterface.h"
#include "interfaces/services/SelectFileServiceInterface.h"
#include "interfaces/services/SelectRegionServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"

#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

using namespace velmora::sdk::integration;

namespace {

/// The place of a virtual operation, by the layout that the common C++ ABI gives a pointer to it: the
/// distance in the table, plus 1 (on Arm that 1 is kept in the second word instead).
template <typename Operation>
long placeOf(Operation operation)
{
    std::ptrdiff_t words[2];
    static_assert(sizeof words == sizeof operation, "This is the layout of the Itanium C++ ABI.");
    std::memcpy(words, &operation, sizeof words);
#if defined(__arm__) || defined(__aarch64__)
    return words[0] / static_cast<long>(sizeof(void*));
#else
    return (words[0] - 1) / static_cast<long>(sizeof(void*));
#endif
}

template <typename... Operations>
std::vector<long> placesOf(Operations... operations)
{
    return {placeOf(operations)...};
}

/// So many places one after the other, from the first one of these on.
std::vector<long> places(long count, long first = 0)
{
    std::vector<long> expected;
    for (long place = first; place < first + count; ++place)
        expected.push_back(place);
    return expected;
}

// An interface without data shares the table of the first of its bases that has none either, and goes on
// behind that one's operations and destructor, which takes two places.
const long AfterEvent = 6;
const long AfterKeyObservable = 4;

// Opens what is protected.
struct TimerInside : velmora::sdk::util::TimerAbstract {
    using TimerAbstract::internalStart;
    using TimerAbstract::internalStop;
    using TimerAbstract::timeout;
};
struct ManagerAbstractInside : ManagerAbstract {
    using ManagerAbstract::subManagersDestroy;
    using ManagerAbstract::subManagersInstantiate;
    using ManagerAbstract::subManagersRegisterCallbacks;
};
struct ManagerInside : Manager {
    using Manager::subManagersDestroy;
    using Manager::subManagersInstantiate;
    using Manager::subManagersRegisterCallbacks;
};

} // namespace

TEST(SlotOrder, Event)
{
    using I = EventInterface;
    EXPECT_EQ(places(4), placesOf(&I::keyboardModifiers, &I::isControlDown, &I::isShiftDown, &I::isAltDown));
}

TEST(SlotOrder, KeyEvent)
{
    using I = KeyEventInterface;
    EXPECT_EQ(places(1, AfterEvent), placesOf(&I::key));
}

TEST(SlotOrder, MouseEvent)
{
    using I = MouseEventInterface;
    EXPECT_EQ(places(4, AfterEvent), placesOf(&I::button, &I::x, &I::y, &I::clone));
}

TEST(SlotOrder, MouseWheelEvent)
{
    using I = MouseWheelEventInterface;
    EXPECT_EQ(places(7, AfterEvent), placesOf(&I::x, &I::y, &I::delta, &I::isLeftButtonDown, &I::isMiddleButtonDown,
                                              &I::isRightButtonDown, &I::orientation));
}

TEST(SlotOrder, MouseEventObservable)
{
    using I = MouseEventObservableInterface;
    EXPECT_EQ(places(10),
              placesOf(&I::addMouseListener, &I::removeMouseListener, &I::signalMouseMovedConnected,
                       &I::signalButtonPressedConnected, &I::signalButtonDoublePressedConnected,
                       &I::signalButtonReleasedConnected, &I::signalWheelRotatedConnected,
                       &I::signalThreedMouseMotionEventConnected, &I::signalThreedMouseMotionEventEndConnected,
                       &I::signalThreedMouseButtonActionEventConnected));
}

TEST(SlotOrder, MouseEventListener)
{
    using I = MouseEventListenerInterface;
    EXPECT_EQ(places(4), placesOf(&I::mouseMoved, &I::buttonPressed, &I::buttonReleased, &I::buttonDoublePressed));
}

TEST(SlotOrder, KeyEventObservable)
{
    using I = KeyEventObservableInterface;
    EXPECT_EQ(places(2), placesOf(&I::addKeyboardListener, &I::removeKeyboardListener));
}

TEST(SlotOrder, KeyEventListener)
{
    using I = KeyEventListenerInterface;
    EXPECT_EQ(places(2), placesOf(&I::keyPressed, &I::keyReleased));
}

TEST(SlotOrder, OnIdleObservable)
{
    using I = OnIdleObservableInterface;
    EXPECT_EQ(places(2), placesOf(&I::addOnIdleListener, &I::removeOnIdleListener));
}

TEST(SlotOrder, OnIdleListener)
{
    using I = OnIdleListenerInterface;
    EXPECT_EQ(places(1), placesOf(&I::onIdle));
}

TEST(SlotOrder, ApplicationEventMonitor)
{
    using I = ApplicationEventMonitorInterface;
    EXPECT_EQ(places(8),
              placesOf(&I::isBusy, &I::interrupt, &I::shouldInterrupt, &I::isEngineInterruptible,
                       &I::signalMouseButtonStateChangedConnected, &I::signalWidgetChangeDuetoTimerEventConnected,
                       &I::signalProcessingNewEventConnected, &I::signalEngineIsNoLongerBusyConnected));
}

TEST(SlotOrder, GLContext)
{
    using I = GLContextInterface;
    EXPECT_EQ(places(3), placesOf(&I::swapBuffers, &I::setCurrentGL, &I::clearCurrentGL));
}

TEST(SlotOrder, GLDrawArea)
{
    using I = GLDrawAreaInterface;
    EXPECT_EQ(places(10, AfterKeyObservable),
              placesOf(&I::isVisible, &I::getSize, &I::getGLContext, &I::isValidWidget, &I::addStateListener,
                       &I::removeStateListener, &I::signalDrawAreaExposedConnected,
                       &I::signalDrawAreaDestroyedConnected, &I::signalDrawAreaFocusGainedConnected,
                       &I::setPageManager));
}

TEST(SlotOrder, GLDrawAreaListener)
{
    using I = GLDrawAreaListenerInterface;
    EXPECT_EQ(places(3), placesOf(&I::drawAreaExposed, &I::drawAreaDestroyed, &I::drawAreaFocusGained));
}

TEST(SlotOrder, OffscreenImage)
{
    using I = OffscreenImageInterface;
    EXPECT_EQ(places(4), placesOf(&I::render, &I::getGLContext, &I::width, &I::height));
}

TEST(SlotOrder, Page)
{
    using I = PageInterface;
    EXPECT_EQ(places(2), placesOf(&I::getDrawArea, &I::pageNumber));
}

TEST(SlotOrder, PageManager)
{
    using I = PageManagerInterface;
    EXPECT_EQ(places(5),
              placesOf(&I::attachDrawArea, &I::detachDrawArea, &I::exposeDrawArea, &I::activateDrawArea, &I::pageOf));
}

TEST(SlotOrder, EventManager)
{
    using I = EventManagerInterface;
    EXPECT_EQ(places(2), placesOf(&I::registerStopButton, &I::unRegisterStopButton));
}

TEST(SlotOrder, DialogManager)
{
    using I = DialogManagerInterface;
    EXPECT_EQ(places(1), placesOf(&I::openDialogCount));
}

TEST(SlotOrder, ServiceRepository)
{
    using I = ServiceRepositoryInterface;
    EXPECT_EQ(places(1), placesOf(&I::addService));
}

TEST(SlotOrder, StopButton)
{
    using I = StopButtonInterface;
    EXPECT_EQ(places(2), placesOf(&I::isActive, &I::isEqual));
}

TEST(SlotOrder, Timer)
{
    using I = velmora::sdk::util::TimerInterface;
    EXPECT_EQ(places(6),
              placesOf(&I::start, &I::stop, &I::addListener, &I::removeListener, &I::getInterval, &I::isRunning));
}

TEST(SlotOrder, TimerListener)
{
    using I = velmora::sdk::util::TimerListenerInterface;
    EXPECT_EQ(places(1), placesOf(&I::timeout));
}

TEST(SlotOrder, CursorShapeService)
{
    using I = services::CursorShapeServiceInterface;
    EXPECT_EQ(places(2), placesOf(&I::activateWaitCursor, &I::setBaseCursorStyle));
}

TEST(SlotOrder, ManagerMiscService)
{
    using I = services::ManagerMiscServiceInterface;
    EXPECT_EQ(places(7),
              placesOf(&I::translateNonPrintableKeyboardCode, &I::getDotPitchPerCm, &I::getScreenSizeInPixels,
                       &I::keyboardModifiers, &I::mouseButtonState, &I::openGLVersionString, &I::operator long));
}

TEST(SlotOrder, MessageBoxService)
{
    using I = services::MessageBoxServiceInterface;
    EXPECT_EQ(places(1), placesOf(&I::displayMessageBox));
}

TEST(SlotOrder, OffscreenImageService)
{
    using I = services::OffscreenImageServiceInterface;
    EXPECT_EQ(places(3), placesOf(&I::imageCreate, &I::imageGetRGBRow, &I::imageDestroy));
}

TEST(SlotOrder, SelectFileService)
{
    using I = services::SelectFileServiceInterface;
    EXPECT_EQ(places(1), placesOf(&I::displayFileDialog));
}

TEST(SlotOrder, SelectRegionService)
{
    using I = services::SelectRegionServiceInterface;
    EXPECT_EQ(places(1), placesOf(&I::selectItems));
}

// The destructor, which takes two places, comes first.
TEST(SlotOrder, Service)
{
    using I = services::ServiceInterface;
    EXPECT_EQ(places(2, 2), placesOf(&I::registerCallbacks, &I::makeCurrent));
}

TEST(SlotOrder, Manager)
{
    using I = ManagerInterface;
    typedef ManagerStartReturnCode_e (I::*Init)(int, char* const*, std::string, std::string);
    typedef ManagerStartReturnCode_e (I::*InitWithLevel)(int, char* const*, std::string, StateModernizationLevel_e,
                                                         std::string);
    EXPECT_EQ(places(13),
              placesOf(&I::getPageManager, &I::getEventManager, &I::getDialogManager, &I::getServiceRepository,
                       &I::returnCodeString, Init(&I::init), InitWithLevel(&I::init), &I::start, &I::stop,
                       &I::isInBatchMode, &I::signalEngineStartedConnected, &I::signalEngineShutdownInitiatedConnected,
                       &I::signalEngineShutdownFinishedConnected));
}

TEST(SlotOrder, ManagerAbstract)
{
    using I = ManagerAbstractInside;
    typedef ManagerStartReturnCode_e (ManagerAbstract::*Init)(int, char* const*, std::string, std::string);
    typedef ManagerStartReturnCode_e (ManagerAbstract::*InitWithLevel)(int, char* const*, std::string,
                                                                       StateModernizationLevel_e, std::string);
    EXPECT_EQ(places(10), placesOf(&I::getPageManager, &I::getEventManager, &I::getDialogManager,
                                   &I::getServiceRepository, &I::returnCodeString, Init(&ManagerAbstract::init),
                                   InitWithLevel(&ManagerAbstract::init), &I::start, &I::stop, &I::isInBatchMode));
    EXPECT_EQ(places(4, 12), placesOf(&I::subManagersInstantiate, &I::subManagersRegisterCallbacks,
                                      &I::subManagersDestroy, &I::getApplicationEventMonitor));
}

// The destructor comes first.
TEST(SlotOrder, ManagerOfTheToolkit)
{
    using I = ManagerInside;
    EXPECT_EQ(places(4, 2), placesOf(&I::getApplicationEventMonitor, &I::subManagersInstantiate,
                                     &I::subManagersRegisterCallbacks, &I::subManagersDestroy));
}

// The destructor stands behind the operations of the interface.
TEST(SlotOrder, TimerAbstract)
{
    using I = TimerInside;
    EXPECT_EQ(places(6),
              placesOf(&I::start, &I::stop, &I::addListener, &I::removeListener, &I::getInterval, &I::isRunning));
    EXPECT_EQ(places(3, 8), placesOf(&I::timeout, &I::internalStart, &I::internalStop));
}

// The destructor stands behind the two operations for keyboard listeners.
TEST(SlotOrder, ApplicationEventMonitorOfTheToolkit)
{
    using I = intern::ApplicationEventMonitor;
    EXPECT_EQ(places(2), placesOf(&I::addKeyboardListener, &I::removeKeyboardListener));
    EXPECT_EQ(places(15, AfterKeyObservable),
              placesOf(&I::isBusy, &I::interrupt, &I::shouldInterrupt, &I::isEngineInterruptible, &I::addMouseListener,
                       &I::removeMouseListener, &I::addOnIdleListener, &I::removeOnIdleListener, &I::registerStopButton,
                       &I::unRegisterStopButton, &I::processWhileBusy_Internal, &I::interruptEventProcessing,
                       &I::operator long, &I::start, &I::stop));
}

TEST(SlotOrder, EventHandler)
{
    using I = intern::ApplicationEventMonitor::EventHandlerInterface;
    EXPECT_EQ(places(10),
              placesOf(&I::handleTimerEventCausingWidgetChange, &I::handleMouseWheelEvent, &I::handleMouseMoveEvent,
                       &I::handleMouseButtonPress, &I::handleMouseButtonRelease, &I::handleMouseButtonDblClick,
                       &I::handleKeyPress, &I::handleKeyRelease, &I::handleShortcut, &I::handleCloseEvent));
}

TEST(SlotOrder, ExportableImage)
{
    using I = intern::ExportableImageInterface;
    EXPECT_EQ(places(1), placesOf(&I::toImage));
}
