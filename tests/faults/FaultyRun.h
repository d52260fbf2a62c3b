#pragma once

#include "tests/faults/XServer.h"
#include "tests/viewer/TempFolder.h"

#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace velmora::test {

/// A run of the viewer on a display that is not as it should be.
class FaultyRun : public ::testing::Test {
protected:
    FaultyRun();
    ~FaultyRun() override;

    /// Sets a variable of the run's environment; null takes it out.
    void setVariable(const char* name, const QString& value);
    void useDisplay(const XServer& server) { setVariable("DISPLAY", server.name()); }

    void start(const QStringList& arguments);
    /// Waits until the run has reached for the display and then used that much of the processor, so
    /// that it is at work.
    bool waitUntilAtWork(int milliseconds);
    /// Waits until the run waits for input and does nothing else.
    bool waitUntilAtRest();
    /// Waits for the end of the run; its exit code, or -1 when it crashed or did not end.
    int exitCode();
    /// What it said on standard error.
    QString told() const { return m_told; }
    int run(const QStringList& arguments);

    /// The run ends with the code and says each of the words.
    void expectEnd(int code, const QStringList& words);
    void expectRun(const QStringList& arguments, int code, const QStringList& words = QStringList());

    TempFolder folder;

private:
    long processorMilliseconds() const;
    bool hasLoaded(const char* library) const;

    QStringList m_environment;
    QProcess m_process;
    QString m_told;
};

} // namespace velmora::test
