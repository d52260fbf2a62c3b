#pragma once

#include "engine/page/Page.h"

#include <memory>
#include <vector>

namespace velmora::engine {

/// The pages of the running engine, by their numbers from 1. Work shares the page that it works on,
/// so that stopping the engine from inside its turn is safe.
class Pages {
public:
    /// One empty page, active.
    void begin();
    void end();

    /// Null for a number that no page has.
    std::shared_ptr<Page> find(int number) const;
    /// Null while the engine does not run.
    std::shared_ptr<Page> active() const { return m_active; }
    void activate(const std::shared_ptr<Page>& page) { m_active = page; }
    velmora::sdk::integration::PageInterface* activeInterface() const;
    std::shared_ptr<Page> findByArea(const velmora::sdk::integration::GLDrawAreaInterface& area) const;
    /// The first page without an area, else a new one.
    std::shared_ptr<Page> freePage();
    const std::vector<std::shared_ptr<Page>>& all() const { return m_pages; }
    /// The page that waits to be drawn and can be, or null.
    std::shared_ptr<Page> nextWaiting() const;

private:
    std::vector<std::shared_ptr<Page>> m_pages;
    std::shared_ptr<Page> m_active;
};

Pages& pages();

} // namespace velmora::engine
