// Tries the event monitor in a program that knows nothing of it.
//   try_application compare|endure --preload LIBRARY --window-manager FILE --monitor everything|input|none
//                   [--acts N] [--seconds N] [--seed N] [--file FILE] [--keep FOLDER] [--patience SECONDS] -- PROGRAM
//                   [ARGUMENT …]
// compare: the program behaves as without the monitor while the engine has nothing to do. endure: it
// stays well while the engine works every two seconds. Exit code: 0 when nothing was found, 1 when
// something was, 2 for wrong usage, 77 when the system cannot keep the program from writing to other
// files, which a person at random would do.

#include "tests/applications/Comparison.h"
#include "tests/applications/Confinement.h"
#include "tests/applications/Endurance.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <random>

namespace files = std::filesystem;
using namespace velmora::test;

namespace {

constexpr int WrongUsage = 2;
constexpr int Skipped = 77;
constexpr int RowsOfData = 100000; // about 150 portions of the reading, and as many slices

struct Options {
    std::string mode;
    std::string windowManager;
    std::string keep;
    double seconds = 300;
    int acts = 60;
    unsigned long seed = std::random_device()();
    Start start;
};

Options optionsFrom(int argc, char** argv)
{
    Options options;
    const std::map<std::string, std::function<void(const std::string&)>> takes = {
        {"--preload", [&](const std::string& value) { options.start.preload = value; }},
        {"--window-manager", [&](const std::string& value) { options.windowManager = value; }},
        {"--monitor", [&](const std::string& value) { options.start.monitor = value == "none" ? "" : value; }},
        {"--acts", [&](const std::string& value) { options.acts = std::stoi(value); }},
        {"--seconds", [&](const std::string& value) { options.seconds = std::stod(value); }},
        {"--seed", [&](const std::string& value) { options.seed = std::stoul(value); }},
        {"--file", [&](const std::string& value) { options.start.files.push_back(value); }},
        {"--keep", [&](const std::string& value) { options.keep = value; }},
        {"--patience", [&](const std::string& value) { options.start.patienceSeconds = std::stoi(value); }},
    };
    int i = 2;
    for (; i + 1 < argc && argv[i] != std::string("--"); i += 2) {
        const auto found = takes.find(argv[i]);
        if (found == takes.end())
            throw std::runtime_error(std::string("There is no option ") + argv[i] + ".");
        found->second(argv[i + 1]);
    }
    for (++i; i < argc; ++i)
        options.start.command.push_back(argv[i]);
    options.mode = argc > 1 ? argv[1] : "";
    if (options.start.command.empty() || (options.mode != "compare" && options.mode != "endure"))
        throw std::runtime_error("usage: try_application compare|endure OPTIONS -- PROGRAM [ARGUMENT …]");
    return options;
}

/// Where the program lives and writes. It goes when nothing was found.
class Folder {
public:
    explicit Folder(const std::string& wanted) : m_path(wanted), m_isKept(!wanted.empty())
    {
        char name[] = "/tmp/try_application_XXXXXX";
        if (m_isKept)
            files::create_directories(m_path);
        else if (mkdtemp(name))
            m_path = name;
        else
            throw std::runtime_error("A temporary folder could not be made.");
    }
    ~Folder()
    {
        std::error_code ignored;
        if (!m_isKept)
            files::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path() const { return m_path.string(); }
    void keep() { m_isKept = true; }

private:
    files::path m_path;
    bool m_isKept;
};

void writeData(const std::string& fileName)
{
    std::ofstream file(fileName);
    file << "a,b,c\n";
    for (int row = 0; row < RowsOfData; ++row)
        file << row << ',' << row * 2 << ',' << row % 7 << '\n';
}

int tryProgram(const Options& options, const std::string& folder)
{
    Start start = options.start;
    start.folder = folder;
    start.data = folder + "/data.csv";
    writeData(start.data);
    Desktop desktop(options.windowManager);
    if (options.mode == "compare")
        return compare(desktop, start, options.acts, options.seed, std::cout);
    std::ofstream log(folder + "/log");
    const int found = endure(desktop, start, options.seconds, options.seed, log);
    log.close();
    std::ifstream again(folder + "/log");
    std::string last;
    for (std::string line; std::getline(again, line);)
        last = line;
    std::cout << last << std::endl;
    return found;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const Options options = optionsFrom(argc, argv);
        if (!canConfine()) {
            std::printf("try_application: this kernel has no Landlock; nothing is tried\n");
            return Skipped;
        }
        Folder folder(options.keep);
        std::cout << "seed " << options.seed << std::endl;
        if (tryProgram(options, folder.path()) == 0)
            return EXIT_SUCCESS;
        folder.keep();
        std::cout << "see " << folder.path() << std::endl;
        return EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "try_application: %s\n", error.what());
        return WrongUsage;
    }
}
