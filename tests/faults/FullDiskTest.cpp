// The viewer when what it writes does not fit. What is on the disk already stays as it is.

#include "tests/faults/FaultyRun.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QFile>

#include <sys/mount.h>

using namespace velmora::test;

namespace {

constexpr int Failed = 1;

class FullDisk : public FaultyRun {
protected:
    FullDisk()
    {
        useDisplay(server);
        EXPECT_TRUE(QDir().mkdir(disk));
    }
    ~FullDisk() override { umount(QFile::encodeName(disk).constData()); }

    bool makeSmall() { return mount("none", QFile::encodeName(disk).constData(), "tmpfs", 0, "size=16k") == 0; }

    /// Each way of writing a file fails, says why, and leaves an older file and no other.
    void expectNothingFits()
    {
        writesNothing("--export", "plot.png");
        writesNothing("--snapshot", "plot.png");
        writesNothing("--print", "plot.pdf");
    }

    void writesNothing(const char* task, const char* name)
    {
        const QString file = disk + "/" + name;
        const QStringList arguments = QStringList() << task << file << "--size"
                                                    << "1200x900" << data;
        expectRun(arguments, Failed, QStringList() << file);
        EXPECT_EQ(files().join(" ").toStdString(), "");
        const std::string older = "an older file";
        folder.write((QByteArray("disk/") + name).constData(), older.c_str());
        expectRun(arguments, Failed, QStringList() << file);
        EXPECT_EQ(files().join(" ").toStdString(), name);
        QFile kept(file);
        EXPECT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll().constData(), older);
        EXPECT_TRUE(kept.remove());
    }

    QStringList files() const { return QDir(disk).entryList(QDir::Files | QDir::Hidden); }

    XServer server{QStringList(), QLatin1String("1280x1024x24")}; // holds the snapshot
    const QString disk = folder.file("disk");
    const QString data = folder.writeGrid();
};

} // namespace

TEST_F(FullDisk, NothingIsWrittenAndNothingIsLost)
{
    if (!makeSmall())
        GTEST_SKIP() << "only the superuser can make a small disk";
    expectNothingFits();
}

TEST_F(FullDisk, TheSameWhereFilesMayNotBecomeLarger)
{
    const FileSizeLimit limit(8000);
    expectNothingFits();
}
