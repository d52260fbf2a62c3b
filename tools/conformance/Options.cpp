#include "Options.h"

#include <cstdlib>

namespace conformance {

Options parseOptions(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc && options.error.empty(); ++i) {
        const std::string word = argv[i];
        const bool takesValue = word == "--content" || word == "--longest" || word == "--load";
        if (takesValue && i + 1 == argc)
            options.error = word + " needs a value.";
        else if (word == "--content")
            options.modules.emplace_back(argv[++i]);
        else if (word == "--load")
            options.load = argv[++i];
        else if (word == "--longest")
            options.longest = std::strtod(argv[++i], nullptr);
        else if (word == "--engine")
            options.engineOnly = true;
        else if (word == "--help" || word == "-h")
            options.isHelp = true;
        else if (word.rfind("--", 0) == 0)
            options.error = "There is no option " + word + ".";
        else
            options.files.push_back(word);
    }
    if (options.error.empty() && !options.isHelp && options.files.empty())
        options.error = "Give a file to show.";
    if (options.error.empty() && !(options.longest > 0))
        options.error = "--longest needs milliseconds above 0.";
    return options;
}

const char* helpText()
{
    return "usage: velmora-conformance [OPTIONS] FILE...\n"
           "\n"
           "Shows each file and tells which promises of docs/own-renderer.md its content keeps: in the drawing area,\n"
           "and in images drawn with hardware, with EGL and with software.\n"
           "\n"
           "  --content MODULE.so  reads also what this module reads; may be given several times\n"
           "  --longest MS         milliseconds that a content may draw without asking its checkpoint (100)\n"
           "  --engine             asks the engine from outside, which any engine behind the binding can be\n"
           "  --load FUNCTION      shows a file by this function, int (const char* fileName), 0 for failure;\n"
           "                       for an engine that has no VelUtilDataLoad\n"
           "  --help, -h           prints this text\n"
           "\n"
           "Exit code: 0 when every promise is kept, 1 when one is broken or a file cannot be shown, 2 for a wrong\n"
           "command line, 3 when the engine does not start.\n";
}

} // namespace conformance
