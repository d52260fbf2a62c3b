#pragma once

namespace viewer {

// The engine's whole-number settings, by the branch and the name in it ("Interface", "ShowPaper").

/// 0 when there is none.
long readSetting(const char* branch, const char* name);
/// Within an AppLock of the caller's.
void writeSetting(const char* branch, const char* name, int value);

} // namespace viewer
