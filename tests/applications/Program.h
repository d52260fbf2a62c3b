#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include <sys/types.h>

namespace velmora::test {

/// How to start a program with the preloaded library.
struct Start {
    std::vector<std::string> command;
    std::string preload;            ///< the libraries, as in LD_PRELOAD
    std::string folder;             ///< the only place that it can write to
    std::string monitor;            ///< "everything", "input" or "" for none
    std::vector<std::string> files; ///< for the program to open
    std::string data;               ///< for the engine to read
    std::string events;             ///< file for the record of events, or ""
    int patienceSeconds = 60;       ///< after which a program that does not answer is frozen
};

/// The folder in which it starts and takes for its home.
std::string homeOf(const Start& start);
/// Makes the home new, and copies the files into it.
void prepareHome(const Start& start);

/// The program has ended; what() tells how.
class ProgramEnded : public std::runtime_error {
public:
    ProgramEnded(const std::string& how, bool crash) : std::runtime_error(how), crashed(crash) {}
    bool crashed;
};

/// The program did not answer in time. It has been aborted, and showed where it was.
class ProgramFrozen : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A program under test, and a conversation with it (tests/applications/preload/Conversation.h).
class Program {
public:
    explicit Program(const Start& start);
    /// Ends it.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Throws ProgramEnded or ProgramFrozen instead of answering.
    std::string ask(const std::string& question);

private:
    [[noreturn]] void becomeFrozen(const std::string& question);
    [[noreturn]] void becomeEnded();

    int m_patienceMilliseconds;
    pid_t m_process = -1;
    int m_socket = -1;
};

} // namespace velmora::test
