// Uses the viewer for a long time as no one would, and watches whether it holds more and more:
// memory, files, X resources, OpenGL objects.
//   soak --program PROGRAM --data FOLDER [--minutes N] [--seed N] [--log FILE]
//        [--round SECONDS] [--allow-kb-per-minute N] [--allow-pieces N]
// PROGRAM is soaked_viewer; FOLDER holds the sample data. Once a round the program rests and is looked
// at; what is seen is judged from a quarter of the time on. Exit code: 0 when all stayed flat, 1 when
// something grew, crashed or hung.

#include "tests/soak/Person.h"
#include "tests/soak/SoakedProcess.h"
#include "tests/soak/Verdict.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>

namespace files = std::filesystem;
using namespace velmora::test;

namespace {

constexpr double ShareToWarmUp = 0.25;

struct Options {
    std::string program;
    std::string data;
    std::string log;
    double minutes = 20;
    double secondsPerRound = 15;
    unsigned long seed = std::random_device()();
    // A leak of one small object a round shows; what a driver's caches and the heap's fragments add
    // does not.
    Allowance allowed = {200, 0};
};

Options optionsFrom(int argc, char** argv)
{
    Options options;
    const std::map<std::string, std::function<void(const std::string&)>> takes = {
        {"--program", [&](const std::string& value) { options.program = value; }},
        {"--data", [&](const std::string& value) { options.data = value; }},
        {"--log", [&](const std::string& value) { options.log = value; }},
        {"--minutes", [&](const std::string& value) { options.minutes = std::stod(value); }},
        {"--round", [&](const std::string& value) { options.secondsPerRound = std::stod(value); }},
        {"--seed", [&](const std::string& value) { options.seed = std::stoul(value); }},
        {"--allow-kb-per-minute",
         [&](const std::string& value) { options.allowed.kilobytesPerMinute = std::stod(value); }},
        {"--allow-pieces", [&](const std::string& value) { options.allowed.pieces = std::stod(value); }},
    };
    for (int i = 1; i + 1 < argc; i += 2) {
        const auto found = takes.find(argv[i]);
        if (found == takes.end())
            throw std::runtime_error(std::string("There is no option ") + argv[i] + ".");
        found->second(argv[i + 1]);
    }
    if (options.program.empty() || options.data.empty())
        throw std::runtime_error("usage: soak --program PROGRAM --data FOLDER [--minutes N] [--seed N] [--log FILE]");
    return options;
}

/// A folder with the files that a Person knows. It goes with the object, but for an exception: the
/// program may have left a core file there.
class Folder {
public:
    explicit Folder(const files::path& data)
    {
        char name[] = "/tmp/soak_XXXXXX";
        if (!mkdtemp(name))
            throw std::runtime_error("A temporary folder could not be made.");
        m_path = name;
        files::copy_file(data / "volcanic_island.asc", m_path / "c.asc");
        files::copy_file(data / "weather_station.csv", m_path / "b.csv");
        std::ofstream(m_path / "d.csv") << "a,b\n1,\"2\n";
        std::ofstream(m_path / "a.asc")
            << "ncols 3\nnrows 3\nxllcorner 0\nyllcorner 0\ncellsize 1\n1 2 3 2 3 4 3 4 5\n";
    }
    ~Folder()
    {
        std::error_code ignored;
        if (std::uncaught_exceptions() == 0)
            files::remove_all(m_path, ignored);
        else
            std::fprintf(stderr, "soak: %s is kept\n", m_path.c_str());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path() const { return m_path.string(); }

private:
    files::path m_path;
};

class Clock {
public:
    double minutes() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count() / 60;
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

std::string asOneWord(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return std::isalnum(c) ? static_cast<char>(std::tolower(c)) : '_'; });
    return name;
}

Sample sampleFrom(double minute, const std::string& line, const Screen& screen)
{
    Sample sample;
    sample.minute = minute;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        const std::string::size_type sign = word.find('=');
        sample.held[word.substr(0, sign)] = std::stod(word.substr(sign + 1));
    }
    for (const auto& count : screen.resources())
        sample.held["x_" + asOneWord(count.first)] = static_cast<double>(count.second);
    sample.held["x_pixmaps_kb"] = static_cast<double>(screen.pixmapKilobytes());
    return sample;
}

void write(std::ostream& out, const Sample& sample)
{
    char minute[32];
    std::snprintf(minute, sizeof minute, "%7.2f min", sample.minute);
    out << minute;
    for (const auto& held : sample.held)
        out << ' ' << held.first << '=' << static_cast<long>(held.second);
    out << std::endl;
}

std::vector<Sample> soak(const Options& options, std::ostream& log)
{
    const Folder folder(options.data);
    Screen screen;
    SoakedProcess program(options.program, folder.path(), "a.asc");
    Person person(screen, options.seed);
    const Clock clock;
    std::vector<Sample> samples;
    long acts = 0;
    std::size_t warm = 0; // at a slow machine a round takes longer
    while (clock.minutes() < options.minutes || warm < FewestSamples) {
        const Clock round;
        while (round.minutes() * 60 < options.secondsPerRound && program.isRunning()) {
            person.actOnce();
            ++acts;
        }
        samples.push_back(sampleFrom(clock.minutes(), program.rest(), screen));
        write(log, samples.back());
        warm += samples.back().minute >= options.minutes * ShareToWarmUp ? 1 : 0;
    }
    if (program.end() != 0)
        throw std::runtime_error("The program did not end well.");
    log << acts << " acts in " << samples.size() << " rounds" << std::endl;
    return samples;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const Options options = optionsFrom(argc, argv);
        std::printf("soak: seed %lu\n", options.seed);
        std::fflush(stdout);
        std::ofstream file(options.log.empty() ? "/dev/stdout" : options.log);
        const std::vector<Sample> samples = soak(options, file);
        const std::vector<std::string> wrong = findGrowth(samples, options.minutes * ShareToWarmUp, options.allowed);
        for (const std::string& growth : wrong)
            std::printf("soak: %s\n", growth.c_str());
        std::printf("soak: %s\n", wrong.empty() ? "flat" : "not flat");
        return wrong.empty() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "soak: %s\n", error.what());
        return 1;
    }
}
