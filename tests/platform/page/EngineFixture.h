#pragma once

#include "tests/platform/page/FakeArea.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace velmora::test {

/// A started engine, and what its callbacks heard. `inTurn` is what the application does when it
/// gets its turn between two slices; it returns 1 to stop the engine.
class EngineFixture : public testing::Test {
protected:
    EngineFixture();
    ~EngineFixture() override;

    /// A file below a folder of this test's own.
    std::string write(const std::string& name, const std::string& content);
    std::string tableFile();
    std::string gridFile(); ///< rough
    std::string hillFile(); ///< smooth
    void load(const std::string& fileName);
    /// Makes drawing and reading take long enough for many turns.
    static void slowDown();
    static void setStyle(const std::vector<std::string>& words, double value);
    static double style(const std::vector<std::string>& words);
    /// Attaches and exposes.
    static int show(FakeArea& area);
    /// Turns until nothing waits, at most a hundred.
    static int turnUntilDone();

    int turns = 0; ///< of the application
    int notBusyCalls = 0;
    int turnWishes = 0;
    int busyInTurns = 0;  ///< turns in which the engine said that it is busy
    int busyWhenTold = 0; ///< not-busy calls in which it said so
    std::vector<double> progress;
    std::function<int()> inTurn = [] { return 0; };
    std::function<void()> whenNotBusy = [] {};

private:
    void registerCallbacks();
    static int turn(long self);
    static void notBusy(long self);
    static void turnRequested(long self);
    static void heardProgress(const char* what, double fraction, long self);

    std::string m_folder;
};

} // namespace velmora::test
