#pragma once

#include "integration/toolkit/OwnedVisual.h"

#include <memory>
#include <vector>

namespace velmora {
namespace sdk {
namespace integration {

struct VisualCandidate;

/// What the ranking of visuals is asked for; sizes in bits.
struct VisualRequest {
    int depthSize = 0;
    int samples = 0;
    int accumSize = 0;
};

/// The TrueColor visuals of the toolkit's X display, as they were when the list was made. Empty
/// without X11, and on a server without GLX, by which alone they could be told apart.
class VisualList {
public:
    VisualList();
    ~VisualList();
    VisualList(const VisualList&) = delete;
    VisualList& operator=(const VisualList&) = delete;

    bool isEmpty() const;
    /// One record a visual, in the order of the X server.
    std::vector<VisualCandidate> candidates(const VisualRequest& request) const;
    /// The ID of the visual that ranks highest; the list must not be empty.
    unsigned long best(const VisualRequest& request) const;

    /// The visual with this ID, whatever its class, or null. Only with X11.
    static toolkit::OwnedVisual find(unsigned long visualId);
    /// The ID of an `XVisualInfo*`, which must not be null.
    static unsigned long idOf(const void* visualInfo);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
