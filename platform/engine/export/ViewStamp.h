#pragma once

#include "engine/page/Page.h"
#include "engine/page/Paper.h"

#include <memory>
#include <vector>

namespace velmora::engine {

/// What the active page shows, to see later whether it still does: the parts of a picture must
/// all be of the same view.
class ViewStamp {
public:
    ViewStamp();
    /// False when another page is active, or the page got other frames, views or another paper.
    bool isCurrent() const;

private:
    std::shared_ptr<Page> m_page;
    unsigned long m_contentVersion;
    std::vector<Frame> m_frames;
    Paper m_paper;
};

} // namespace velmora::engine
