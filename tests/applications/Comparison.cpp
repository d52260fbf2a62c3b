#include "tests/applications/Comparison.h"

#include "tests/applications/Picture.h"
#include "tests/applications/RandomPerson.h"
#include "tests/applications/Record.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <ostream>

namespace velmora::test {

namespace {

constexpr int LookMilliseconds = 30;
constexpr int MostLooks = 30;
constexpr int LooksAtTheSame = 3;
constexpr int MostAttempts = 3;
constexpr int MostDifferences = 5; ///< that are shown
constexpr int LinesAround = 3;

/// What was to be seen after one gesture.
struct Moment {
    Gesture gesture;
    Picture picture;    ///< empty when it is not the same twice or there is none
    std::string ending; ///< how the program ended, or ""
};

/// The program in one of the two runs, started again when the person leaves it.
class Run {
public:
    Run(Desktop& desktop, Start start) : m_desktop(desktop), m_start(std::move(start))
    {
        prepareHome(m_start);
        m_desktop.movePointerAway();
        m_desktop.emptyClipboard();
    }

    std::string targets() { return program().ask("targets"); }

    /// With the picture that is expected, waits for it.
    Moment perform(const Gesture& gesture, const Picture& expected = Picture())
    {
        Moment moment = {gesture, Picture(), ""};
        try {
            program().ask("mark " + std::to_string(++m_gestures) + ": " + describe(gesture));
            m_desktop.perform(gesture);
            settle();
            moment.picture = stillPicture();
            for (int i = 0; !expected.empty() && !lookAlike(moment.picture, expected) && i < MostLooks; ++i)
                moment.picture = stillPicture();
            if (showsFiles())
                moment.picture.clear();
        } catch (const ProgramEnded& end) {
            if (end.crashed)
                throw;
            m_program.reset();
            m_desktop.letGo();
            moment.ending = end.what();
            moment.picture.clear();
        }
        return moment;
    }

    /// The files with the records of events, one for each start.
    std::vector<std::string> records() const { return m_records; }

private:
    Program& program()
    {
        if (!m_program) {
            m_records.push_back(m_start.events + std::to_string(m_records.size()));
            Start start = m_start;
            start.events = m_records.back();
            m_program = std::make_unique<Program>(start);
            settle();
            m_desktop.activateSomeWindow();
            settle();
            stillPicture();
        }
        return *m_program;
    }

    /// They have dates, and are looked for by a thread.
    bool showsFiles() { return m_program->ask("targets").compare(0, 6, "files:") == 0; }

    /// What the window manager does may make the program do something, and the other way round.
    void settle()
    {
        for (int round = 0; round < 2; ++round) {
            m_desktop.awaitWindowManager();
            m_program->ask("settle");
        }
    }

    Picture stillPicture()
    {
        return lookUntilStill([this] { return m_desktop.picture(); }, {LooksAtTheSame, MostLooks, LookMilliseconds})
            .picture;
    }

    Desktop& m_desktop;
    Start m_start;
    std::unique_ptr<Program> m_program;
    std::vector<std::string> m_records;
    long m_gestures = 0;
};

class Comparison {
public:
    Comparison(Desktop& desktop, const Start& start, std::ostream& log) : m_desktop(desktop), m_start(start), m_log(log)
    {}

    int run(int acts, unsigned long seed)
    {
        try {
            const std::vector<std::string> records = record(acts, seed);
            playAgain(records);
        } catch (const std::exception& problem) {
            different(problem.what());
        }
        m_log << m_moments.size() << " gestures, " << m_events << " events, " << m_differences << " differences"
              << std::endl;
        return m_differences;
    }

private:
    Start startOf(const std::string& name, const std::string& monitor) const
    {
        Start start = m_start;
        start.monitor = monitor;
        start.events = m_start.folder + "/events-" + name + "-";
        return start;
    }

    void save(const Picture& picture, const std::string& name, std::size_t number) const
    {
        if (!picture.empty())
            m_desktop.savePicture(picture, m_start.folder + "/picture-" + name + "-" + std::to_string(number) + ".ppm");
    }

    std::vector<std::string> record(int acts, unsigned long seed)
    {
        Run run(m_desktop, startOf("without", ""));
        RandomPerson person(seed, RandomPerson::Patient);
        for (int i = 0; i < acts; ++i)
            for (const Gesture& gesture : person.act(run.targets()))
                m_moments.push_back(run.perform(gesture));
        return run.records();
    }

    void playAgain(const std::vector<std::string>& records)
    {
        Run run(m_desktop, startOf("with", m_start.monitor));
        run.targets();
        for (std::size_t i = 0; i < m_moments.size(); ++i) {
            const Moment moment = run.perform(m_moments[i].gesture, m_moments[i].picture);
            if (moment.ending != m_moments[i].ending)
                different("gesture " + std::to_string(i + 1) + ": the program " + moment.ending + ", and before " +
                          m_moments[i].ending);
            if (lookAlike(moment.picture, m_moments[i].picture))
                continue;
            different("gesture " + std::to_string(i + 1) + ": another picture after " + describe(moment.gesture));
            save(m_moments[i].picture, "without", i + 1);
            save(moment.picture, "with", i + 1);
            return; // what follows is another session
        }
        compareRecords(records, run.records());
    }

    void compareRecords(const std::vector<std::string>& without, const std::vector<std::string>& with)
    {
        if (without.size() != with.size())
            different("the program was started " + std::to_string(with.size()) + " times, and before " +
                      std::to_string(without.size()));
        for (std::size_t i = 0; i < std::min(without.size(), with.size()); ++i)
            compareLines(readRecord(without[i]), readRecord(with[i]));
    }

    void compareLines(const std::vector<std::string>& without, const std::vector<std::string>& with)
    {
        m_events += static_cast<long>(without.size());
        std::size_t at = 0;
        while (at < std::min(without.size(), with.size()) && without[at] == with[at])
            ++at;
        if (without.size() == at && with.size() == at)
            return;
        different("other events from line " + std::to_string(at + 1) + " of the record on:");
        show("without", without, at);
        show("with", with, at);
    }

    void show(const char* name, const std::vector<std::string>& lines, std::size_t at)
    {
        for (std::size_t i = at < LinesAround ? 0 : at - LinesAround; i < std::min(lines.size(), at + LinesAround); ++i)
            m_log << "  " << name << ' ' << i + 1 << ": " << lines[i] << std::endl;
    }

    void different(const std::string& what)
    {
        if (++m_differences <= MostDifferences)
            m_log << "DIFFERENT: " << what << std::endl;
    }

    Desktop& m_desktop;
    const Start& m_start;
    std::ostream& m_log;
    std::vector<Moment> m_moments;
    long m_events = 0;
    int m_differences = 0;
};

} // namespace

int compare(Desktop& desktop, const Start& start, int acts, unsigned long seed, std::ostream& log)
{
    desktop.stopKeyRepetition();
    int differences = 0;
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        differences = Comparison(desktop, start, log).run(acts, seed);
        if (differences == 0)
            break;
    }
    return differences;
}

} // namespace velmora::test
