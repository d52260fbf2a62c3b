#pragma once

#include "interfaces/PageInterface.h"

namespace velmora::sdk::integration::intern {

/// A page of the engine that an area shows, from attaching the area to detaching it.
class Page : public PageInterface {
public:
    explicit Page(GLDrawAreaInterface& area) : m_area(area) {}

    GLDrawAreaInterface* getDrawArea() const override { return &m_area; }
    int pageNumber() const override { return m_number; }
    /// The engine tells the number only after it has taken the page.
    void setPageNumber(int number) { m_number = number; }

private:
    GLDrawAreaInterface& m_area;
    int m_number = 0;
};

} // namespace velmora::sdk::integration::intern
