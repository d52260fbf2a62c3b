#pragma once

#include <string>
#include <vector>

namespace conformance {

struct Options {
    std::vector<std::string> modules;
    std::vector<std::string> files;
    std::string load = "VelUtilDataLoad"; ///< function that shows a file: int (const char* fileName), 0 for failure
    double longest = 100;                 ///< milliseconds
    bool engineOnly = false;              ///< ask the engine from outside, and no content
    bool isHelp = false;
    std::string error;
};

Options parseOptions(int argc, char** argv);
const char* helpText();

} // namespace conformance
