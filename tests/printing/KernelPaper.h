#pragma once

#include <string>
#include <vector>

namespace velmora::test {

// The engine's paper settings as a test arranges and looks at them, by the engine's own means.

void setKernelPortrait(bool portrait);
bool kernelPortrait();
void setKernelPaper(long index);
long kernelPaper();
/// "Custom2", "Width", 7.25
void setKernelLength(const std::string& paper, const char* length, double inches);
double kernelLength(const std::string& paper, const char* length);
/// Makes "Custom2" this size and the current paper.
void setKernelCustomPaper(double widthInches, double heightInches);

struct KernelPaperSize {
    const char* name;
    int width;  ///< whole millimetres
    int height; ///< whole millimetres
};
/// The papers that the engine starts with, in the order of their index.
const std::vector<KernelPaperSize>& kernelPapers();

} // namespace velmora::test
