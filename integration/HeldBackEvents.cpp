#include "integration/HeldBackEvents.h"

namespace velmora::sdk::integration {

namespace {

HeldBackEvents_e g_heldBack = HeldBackEvents_All;

} // namespace

void setHeldBackEvents(HeldBackEvents_e events)
{
    g_heldBack = events;
}

HeldBackEvents_e heldBackEvents()
{
    return g_heldBack;
}

} // namespace velmora::sdk::integration
