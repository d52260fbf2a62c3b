#include "tests/applications/Endurance.h"

#include "tests/applications/Picture.h"
#include "tests/applications/RandomPerson.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <ostream>
#include <sstream>

#include <poll.h>

#include <X11/keysym.h>

namespace velmora::test {

namespace {

constexpr double SecondsBetweenRests = 15;
constexpr int MostAnswers = 60;   ///< to the dialogs and popups that stand between the person and rest
constexpr int MostLooks = 23;     ///< after the first
constexpr int LooksAtTheSame = 8; ///< after the first: longer than the second for which programs show a message
constexpr int AnswerMilliseconds = 150;

class Clock {
public:
    double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count(); }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// The program is not as it should be at rest.
class Unwell : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Endurance {
public:
    Endurance(Desktop& desktop, const Start& start, unsigned long seed, std::ostream& log)
        : m_desktop(desktop), m_start(start), m_person(seed, RandomPerson::Hasty), m_log(log)
    {}

    int run(double seconds)
    {
        try {
            prepareHome(m_start);
            while (m_clock.seconds() < seconds)
                useOnce(seconds);
        } catch (const std::exception& problem) {
            say(problem.what());
            return 1;
        }
        summarize();
        return 0;
    }

private:
    /// Until time is up or the person has left the program.
    void useOnce(double seconds)
    {
        ++m_starts;
        m_worksOfProgram = m_interruptedOfProgram = 0;
        Program program(m_start);
        try {
            program.ask("settle");
            m_openAtFirst = modalOf(program.ask("open"));
            while (m_clock.seconds() < seconds) {
                program.ask("work on");
                useUntil(program, std::min(seconds, m_clock.seconds() + SecondsBetweenRests));
                rest(program);
            }
        } catch (const ProgramEnded& end) {
            m_desktop.letGo();
            if (end.crashed)
                throw;
            say(end.what());
        }
    }

    void useUntil(Program& program, double seconds)
    {
        while (m_clock.seconds() < seconds) {
            ++m_acts;
            noteWork(program.ask("done"));
            for (const Gesture& gesture : m_person.act(program.ask("targets"))) {
                say(describe(gesture));
                m_desktop.perform(gesture);
                poll(nullptr, 0, gesture.pauseMilliseconds);
            }
        }
    }

    void summarize()
    {
        m_log << m_acts << " acts, " << m_rests << " rests, " << m_starts << " starts, " << m_works << " works, "
              << m_interrupted << " interrupted" << std::endl;
    }

    void rest(Program& program)
    {
        ++m_rests;
        say("rest");
        m_desktop.letGo();
        program.ask("work off");
        answerWhatIsOpen(program);
        m_desktop.movePointerAway();
        program.ask("settle");
        requireThat(program.ask("problems"));
        requireNothingGrabbed();
        requireKeysArrive(program);
        requireWholePicture(program);
    }

    void answerWhatIsOpen(Program& program)
    {
        static const unsigned long keys[] = {XK_Escape, XK_Escape, XK_Return, XK_Escape, XK_space};
        std::string open;
        for (int i = 0; i < MostAnswers; ++i) {
            program.ask("settle");
            open = program.ask("open");
            if (open == "busy=0 popup=- modal=" + m_openAtFirst)
                return;
            m_desktop.activateSomeWindow();
            if (i % 6 == 5)
                m_desktop.closeActiveWindow();
            else
                m_desktop.type(keys[i % 6]);
            say("answered: " + open);
            poll(nullptr, 0, AnswerMilliseconds);
        }
        throw Unwell("STUCK: " + open);
    }

    void requireThat(const std::string& problem)
    {
        if (!problem.empty())
            throw Unwell("LEFT WRONG: " + problem);
    }

    /// For longer than the window manager needs.
    void requireNothingGrabbed()
    {
        std::string grabbed;
        for (int i = 0; i < MostLooks; ++i) {
            m_desktop.awaitWindowManager();
            grabbed = m_desktop.whatIsGrabbed();
            if (grabbed.empty())
                return;
            poll(nullptr, 0, AnswerMilliseconds);
        }
        throw Unwell("LEFT WRONG: " + grabbed + " is grabbed");
    }

    void requireKeysArrive(Program& program)
    {
        const std::string before = program.ask("keys");
        for (int i = 0; i < MostLooks; ++i) {
            m_desktop.activateSomeWindow();
            m_desktop.type(XK_Shift_L);
            program.ask("settle");
            if (program.ask("keys") != before)
                return;
            poll(nullptr, 0, AnswerMilliseconds);
        }
        throw Unwell("DEAF: a key press does not arrive");
    }

    /// What is on the screen is what a complete repaint draws.
    void requireWholePicture(Program& program)
    {
        const Picture seen = stillPicture(program);
        program.ask("repaint");
        const Picture repainted = stillPicture(program);
        if (seen.empty() || repainted.empty() || lookAlike(seen, repainted))
            return;
        m_desktop.savePicture(seen, m_start.folder + "/seen.ppm");
        m_desktop.savePicture(repainted, m_start.folder + "/repainted.ppm");
        throw Unwell("NOT PAINTED: seen.ppm differs from repainted.ppm in " + m_start.folder);
    }

    /// Empty when something moves all the time.
    Picture stillPicture(Program& program)
    {
        const auto settled = [&] {
            program.ask("settle");
            return m_desktop.picture();
        };
        LastLook last = lookUntilStill(settled, {LooksAtTheSame, MostLooks, AnswerMilliseconds});
        if (last.isStill)
            return std::move(last.picture);
        say("nothing stands still");
        return Picture();
    }

    void noteWork(const std::string& done)
    {
        std::istringstream numbers(done);
        long works = 0;
        long interrupted = 0;
        numbers >> works >> interrupted;
        m_works += works - m_worksOfProgram;
        m_interrupted += interrupted - m_interruptedOfProgram;
        m_worksOfProgram = works;
        m_interruptedOfProgram = interrupted;
    }

    static std::string modalOf(const std::string& open) { return open.substr(open.rfind('=') + 1); }

    void say(const std::string& text) { m_log << m_clock.seconds() << ' ' << text << std::endl; }

    Desktop& m_desktop;
    const Start& m_start;
    RandomPerson m_person;
    std::ostream& m_log;
    Clock m_clock;
    std::string m_openAtFirst;
    long m_acts = 0;
    long m_rests = 0;
    long m_starts = 0;
    long m_works = 0, m_worksOfProgram = 0;
    long m_interrupted = 0, m_interruptedOfProgram = 0;
};

} // namespace

int endure(Desktop& desktop, const Start& start, double seconds, unsigned long seed, std::ostream& log)
{
    return Endurance(desktop, start, seed, log).run(seconds);
}

} // namespace velmora::test
