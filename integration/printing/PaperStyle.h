#pragma once

#include <optional>

namespace velmora::sdk::integration {

// The engine's paper settings, each read and written afresh. A value that cannot be read counts as
// 0 or false. Writes answer the engine's code: 0 when the value was applied, otherwise another,
// also for a value that was there already.

/// How many papers the engine knows.
constexpr int KernelPaperCount = 6;
/// The paper that takes sizes the engine does not know.
constexpr int KernelCustomPaper = 5;

/// Its name in the paths of the settings; null for a number that no paper has.
const char* kernelPaperName(int index);

bool readKernelOrientPortrait();
int writeKernelOrientPortrait(bool portrait);

/// The number of the current paper, as far as the engine tells.
std::optional<int> readKernelPaperIndex();
int writeKernelPaperIndex(int index);

/// A length of a paper's definition in inches, for example "Width". A number that no paper has adds
/// no name to the path.
double readKernelPaperLength(int index, const char* length);
/// Writes a length of the second custom paper. Definitions are read in one branch of the settings
/// and this one is written in another, deliberately: that is how the engine keeps them.
int writeKernelCustomPaperLength(const char* length, double inches);

} // namespace velmora::sdk::integration
