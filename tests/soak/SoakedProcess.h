#pragma once

#include <string>

#include <sys/types.h>

namespace velmora::test {

/// The program under test, started in a folder.
class SoakedProcess {
public:
    SoakedProcess(const std::string& program, const std::string& folder, const std::string& referenceFile);
    /// Ends it.
    ~SoakedProcess();
    SoakedProcess(const SoakedProcess&) = delete;
    SoakedProcess& operator=(const SoakedProcess&) = delete;

    /// What it holds once it has come to rest. Throws std::runtime_error when it ends or hangs instead.
    std::string rest();
    bool isRunning();
    /// Lets it end by itself; its exit code, or -1 when it crashed or had to be killed.
    int end();

private:
    std::string howItEnded();
    /// Aborts it, so that a core file shows where it hangs.
    [[noreturn]] void giveUp();

    pid_t m_process = -1;
    int m_toIt = -1;
    int m_fromIt = -1;
    int m_status = 0;
};

} // namespace velmora::test
