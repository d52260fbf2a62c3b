// The file that a picture is written to until it is complete.

#include "NewFile.h"

#include "EndSignals.h"
#include "tests/viewer/TempFolder.h"

#include <QFile>
#include <csignal>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace velmora::test;

namespace {

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool replace(const QString& name)
{
    viewer::NewFile file(name);
    QFile written(file.writtenName());
    EXPECT_TRUE(written.open(QIODevice::WriteOnly));
    written.write("new");
    written.close();
    return file.keep();
}

} // namespace

TEST(NewFile, TakesItsNameWhenItIsKept)
{
    const TempFolder folder;
    const QString name = folder.write("out", "old");
    EXPECT_TRUE(replace(name));
    EXPECT_EQ(contentOf(name), "new");
}

// Of processes of their own, for the signal is not forgotten.
TEST(NewFileDeathTest, IsNotKeptOnceASignalHasAskedForTheEnd)
{
    const TempFolder folder;
    const QString name = folder.write("out", "old");
    const auto replaceAfterSignal = [&] {
        const viewer::EndSignals endSignals;
        std::raise(SIGTERM);
        _exit(replace(name) ? 1 : 0);
    };
    EXPECT_EXIT(replaceAfterSignal(), ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(contentOf(name), "old");
}

TEST(NewFileDeathTest, TheFirstSignalIsTheOneThatEndsTheProcess)
{
    const auto endAfterTwo = [] {
        {
            const viewer::EndSignals endSignals;
            std::raise(SIGHUP);
            std::raise(SIGTERM);
        }
        viewer::endAsAsked();
    };
    EXPECT_EXIT(endAfterTwo(), ::testing::KilledBySignal(SIGHUP), "");
}
