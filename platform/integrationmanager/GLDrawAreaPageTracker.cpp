#include "integrationmanager/GLDrawAreaPageTracker.h"

#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/LiveObject.h"
#include "integrationmanager/PageTrackers.h"
#include "interfaces/GLDrawAreaInterface.h"
#include "interfaces/GLDrawAreaListenerInterface.h"
#include "interfaces/PageManagerInterface.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::intern {

namespace {

/// The state of every tracker while a test has set it, else -1.
int overriddenState = -1;

/// A drawing area and the page manager that it is attached to, if any.
class AttachedArea : public GLDrawAreaListenerInterface {
public:
    explicit AttachedArea(GLDrawAreaInterface& area) : m_area(area), m_live(*this) {}
    AttachedArea(const AttachedArea&) = delete;
    AttachedArea& operator=(const AttachedArea&) = delete;
    ~AttachedArea() override { detach(); }

    void attach(PageManagerInterface& manager);
    void detach();
    bool isAttached() const { return m_manager != nullptr; }
    bool isAttachedTo(const PageManagerInterface& manager) const { return m_manager == &manager; }
    bool isOf(const GLDrawAreaInterface& area) const { return &m_area == &area; }
    /// Lets go of the area without a word to the manager.
    void letGo();
    /// Forgets the manager without touching the area.
    void forgetManager() { m_manager = nullptr; }

    void drawAreaExposed(GLDrawAreaInterface& area, bool sizeChanged) override;
    void drawAreaDestroyed(GLDrawAreaInterface& area) override;
    void drawAreaFocusGained(GLDrawAreaInterface& area) override;

private:
    GLDrawAreaInterface& m_area;
    PageManagerInterface* m_manager = nullptr;
    LiveObject<AttachedArea> m_live;
};

void AttachedArea::attach(PageManagerInterface& manager)
{
    if (isAttachedTo(manager))
        return;
    detach();
    manager.attachDrawArea(m_area);
    m_manager = &manager;
    m_area.addStateListener(this);
}

void AttachedArea::detach()
{
    PageManagerInterface* const manager = m_manager;
    if (manager == nullptr)
        return;
    m_manager = nullptr;
    m_area.removeStateListener(this);
    manager->detachDrawArea(m_area);
}

void AttachedArea::letGo()
{
    m_manager = nullptr;
    m_area.removeStateListener(this);
}

void AttachedArea::drawAreaExposed(GLDrawAreaInterface& area, bool sizeChanged)
{
    if (m_manager != nullptr)
        m_manager->exposeDrawArea(area, sizeChanged);
}

void AttachedArea::drawAreaDestroyed(GLDrawAreaInterface& /*area*/)
{
    detach();
}

void AttachedArea::drawAreaFocusGained(GLDrawAreaInterface& area)
{
    if (m_manager != nullptr)
        m_manager->activateDrawArea(area);
}

} // namespace

class GLDrawAreaPageTracker::Impl : public AttachedArea {
public:
    using AttachedArea::AttachedArea;
};

GLDrawAreaPageTracker::GLDrawAreaPageTracker(GLDrawAreaInterface& area)
{
    velmora::testing::EngineProbe::passPoint("GLDrawAreaPageTracker");
    m_impl = std::make_unique<Impl>(area);
}

GLDrawAreaPageTracker::~GLDrawAreaPageTracker()
{
    noteDestruction("GLDrawAreaPageTracker");
}

void GLDrawAreaPageTracker::setPageManager(PageManagerInterface& manager)
{
    m_impl->attach(manager);
}

int GLDrawAreaPageTracker::state() const
{
    if (overriddenState >= 0)
        return overriddenState;
    return m_impl->isAttached() ? 1 : 0;
}

void tellPageTrackersOfDetachedArea(const PageManagerInterface& manager, const GLDrawAreaInterface& area)
{
    LiveObject<AttachedArea>::forEach([&](AttachedArea& attached) {
        if (attached.isAttachedTo(manager) && attached.isOf(area))
            attached.letGo();
    });
}

void forgetPageManager(const PageManagerInterface& manager)
{
    LiveObject<AttachedArea>::forEach([&](AttachedArea& attached) {
        if (attached.isAttachedTo(manager))
            attached.forgetManager();
    });
}

void overridePageTrackerStates(int state)
{
    overriddenState = state;
}

} // namespace velmora::sdk::integration::intern
