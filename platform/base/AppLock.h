#pragma once

#include "engine/VelExport.h"

namespace velmora {
namespace sdk {

/// Brackets a change of engine state, for the life of the object. Locks nest.
class VELMORA_PLATFORM_EXPORT AppLock {
public:
    /// Whether the changes inside become part of a macro that is being recorded.
    enum class ImplicitMacroRecording { Off = 0, On = 1 };

    /// Begins the change. GUI thread only.
    explicit AppLock(ImplicitMacroRecording recording);
    ~AppLock();
    AppLock(const AppLock&) = delete;
    AppLock& operator=(const AppLock&) = delete;

    /// How many locks are held now.
    static int depth();
};

} // namespace sdk
} // namespace velmora
