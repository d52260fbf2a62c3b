#pragma once

#include "interfaces/PageManagerInterface.h"

#include <memory>
#include <vector>

namespace velmora::sdk::integration::intern {

class Page;

/// The pages that drawing areas show, kept in step with the engine's own. Areas can be attached
/// between `open` and `close`, that is, while the engine runs.
class PageManager : public PageManagerInterface {
public:
    PageManager();
    /// Touches neither engine nor areas: at the end of the process both may be gone.
    ~PageManager() override;
    PageManager(const PageManager&) = delete;
    PageManager& operator=(const PageManager&) = delete;

    void open() { m_open = true; }
    /// Takes the pages of all areas away.
    void close();

    /// Throws velmora::ExceptionBase when the engine does not run or has no page to give.
    PageInterface& attachDrawArea(GLDrawAreaInterface& area) override;
    void detachDrawArea(GLDrawAreaInterface& area) override;
    void exposeDrawArea(GLDrawAreaInterface& area, bool sizeChanged) override;
    void activateDrawArea(GLDrawAreaInterface& area) override;
    PageInterface* pageOf(const GLDrawAreaInterface& area) const override;

private:
    std::vector<std::unique_ptr<Page>> m_pages;
    bool m_open = false;
};

} // namespace velmora::sdk::integration::intern
