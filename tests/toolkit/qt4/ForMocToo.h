// clang-format off
// Read by moc because a header with Q_OBJECT includes it.
#pragma once

namespace planted::deeply { // not in Qt 4: namespace a::b (moc 4 stops there)
class Silent final {}; // fine where there is no meta object
} // namespace planted::deeply
