#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class GLDrawAreaInterface;

/// One page of the engine: a paper with frames, shown in at most one drawing area. GUI thread only.
class VELMORA_INTERFACE PageInterface {
public:
    /// The area that shows the page, or null.
    virtual GLDrawAreaInterface* getDrawArea() const = 0;
    /// The page's number in the engine, from 1.
    virtual int pageNumber() const = 0;
    virtual ~PageInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
