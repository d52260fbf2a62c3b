#include "tests/printing/KernelPaper.h"

#include "toolbox/ArgList.h"
#include "toolbox/StyleValue.h"

namespace velmora::test {
namespace {

using toolbox::ArgList;
using toolbox::StyleValue;

const std::vector<long> NoIds{-1};
constexpr int Replace = 255;

void setUpWrite(const StyleValue& style, ArgList& args)
{
    style.setupSetValueArgList(NoIds, nullptr, -1, -1, Replace, args);
}

} // namespace

void setKernelPortrait(bool portrait)
{
    ArgList args;
    setUpWrite(StyleValue("Paper", "OrientPortrait"), args);
    StyleValue::setFinalValue(portrait, args);
}

bool kernelPortrait()
{
    ArgList args;
    bool portrait = false;
    StyleValue("Paper", "OrientPortrait").setupGetValueArgList(NoIds, -1, -1, args);
    StyleValue::getFinalValue(&portrait, args);
    return portrait;
}

void setKernelPaper(long index)
{
    ArgList args;
    setUpWrite(StyleValue("Paper", "PaperSize"), args);
    args.appendArbParam("IValue", index);
    StyleValue::styleSetLowLevel(args);
}

long kernelPaper()
{
    ArgList args;
    long index = -1;
    StyleValue("Paper", "PaperSize").setupGetValueArgList(NoIds, -1, -1, args);
    args.appendArbParamPtr("IValue", &index);
    StyleValue::styleGetLowLevel(args);
    return index;
}

void setKernelLength(const std::string& paper, const char* length, double inches)
{
    ArgList args;
    setUpWrite(StyleValue("Paper", "PaperSizeInfo", paper.c_str(), length), args);
    StyleValue::setFinalValue(inches, args);
}

double kernelLength(const std::string& paper, const char* length)
{
    ArgList args;
    double inches = 0;
    StyleValue("GlobalPaper", "PaperSizeInfo", paper.c_str(), length).setupGetValueArgList(NoIds, -1, -1, args);
    StyleValue::getFinalValue(&inches, args);
    return inches;
}

void setKernelCustomPaper(double widthInches, double heightInches)
{
    setKernelLength("Custom2", "Width", widthInches);
    setKernelLength("Custom2", "Height", heightInches);
    setKernelPaper(5);
}

const std::vector<KernelPaperSize>& kernelPapers()
{
    static const std::vector<KernelPaperSize> papers{
        {"Letter", 216, 279}, {"Double", 279, 432},  {"A4", 210, 297},
        {"A3", 297, 420},     {"Custom1", 203, 254}, {"Custom2", 254, 254},
    };
    return papers;
}

} // namespace velmora::test
