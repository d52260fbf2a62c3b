#pragma once

namespace velmora {
namespace sdk {
namespace integration {

/// What `init` and `start` answer; `ManagerInterface::returnCodeString` puts it into words.
enum ManagerStartReturnCode_e {
    ManagerStartReturnCode_Ok = 0,
    ManagerStartReturnCode_NotInitialized = 1, ///< `start` before `init`
    ManagerStartReturnCode_AlreadyStarted = 2, ///< `init` or `start` while the engine runs
    ManagerStartReturnCode_BadArgument = 3,    ///< `init` with a negative argc or a null argv
    ManagerStartReturnCode_EngineFailed = 4    ///< the engine itself refused to start
};

/// How an engine state written by an older version is read.
enum StateModernizationLevel_e {
    StateModernizationLevel_LatestFull = 0,  ///< take every default of this version
    StateModernizationLevel_LatestFocus = 1, ///< take new defaults, keep the old look
    StateModernizationLevel_None = 2         ///< keep the defaults of the version that wrote it
};

} // namespace integration
} // namespace sdk
} // namespace velmora
