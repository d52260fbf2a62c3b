#pragma once

#include "tests/viewer/TempFolder.h"

#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>

namespace velmora::test {

/// What a run of the viewer left behind.
struct Ended {
    int exitCode = -1; ///< -1: it crashed or did not end; `error` then ends with which of the two
    QString output;
    QString error;
};

/// The built viewer as a process, with a folder of its own for files and settings.
class ViewerProcess : public ::testing::Test {
protected:
    /// Relative names are of the folder.
    void start(QProcess& process, const QStringList& arguments) const;
    static Ended waitForEnd(QProcess& process);
    Ended run(const QStringList& arguments) const;

    TempFolder folder;
};

} // namespace velmora::test
