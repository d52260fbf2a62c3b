#include "integration/NullStopButton.h"

namespace velmora::sdk::integration {

NullStopButton::NullStopButton() = default;
NullStopButton::~NullStopButton() = default;

bool NullStopButton::isActive() const
{
    return true;
}

bool NullStopButton::isEqual(const void*) const
{
    return false;
}

} // namespace velmora::sdk::integration
