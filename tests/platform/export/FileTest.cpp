#include "tests/platform/export/ExportFixture.h"
#include "tests/support/FileSizeLimit.h"

#include <filesystem>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::test {
namespace {

namespace fs = std::filesystem;

class ExportedFile : public ExportFixture {
protected:
    static unsigned permissions(const std::string& file)
    {
        struct stat status = {};
        return stat(file.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }
};

/// The superuser becomes an ordinary user.
class OrdinaryUser {
public:
    OrdinaryUser() : m_before(geteuid()) { EXPECT_EQ(seteuid(m_before == 0 ? 65534 : m_before), 0); }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_before), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_before;
};

TEST_F(ExportedFile, HasThePermissionsOfANewFile)
{
    const mode_t before = umask(0027);
    const std::string file = exported("a.png", options(20, 20));
    umask(before);
    EXPECT_EQ(permissions(file), 0640U);
    EXPECT_EQ(files(), std::vector<std::string>{"a.png"});
}

TEST_F(ExportedFile, KeepsThePermissionsAndOwnerOfTheFileItReplaces)
{
    const std::string file = exported("a.png", options(20, 20));
    for (const unsigned mode : {0600U, 0664U, 0777U}) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        const bool canGiveAway = chown(file.c_str(), 1234, 2345) == 0;
        exported("a.png", options(30, 20));
        EXPECT_EQ(permissions(file), mode);
        struct stat status = {};
        ASSERT_EQ(stat(file.c_str(), &status), 0);
        if (canGiveAway) {
            EXPECT_EQ(status.st_uid, 1234U);
            EXPECT_EQ(status.st_gid, 2345U);
        }
    }
    EXPECT_EQ(readPng(file).width, 30);
}

TEST_F(ExportedFile, ReplacesAnOlderOneAsAWhole)
{
    const std::string file = exported("a.png", options(200, 200));
    const std::string second = path("hard-link.png");
    fs::create_hard_link(file, second);
    const std::string older = content(file);
    exported("a.png", options(20, 20));
    EXPECT_EQ(readPng(file).width, 20);
    EXPECT_EQ(content(second), older) << "the older file was not written into";
}

TEST_F(ExportedFile, GoesWhereASymbolicLinkLeads)
{
    fs::create_directory(path("deep"));
    fs::create_symlink("deep/real.png", path("first.png"));
    fs::create_symlink("first.png", path("second.png"));
    for (const int width : {20, 30}) { // the first leads to nothing yet
        exported("second.png", options(width, 20));
        EXPECT_TRUE(fs::is_symlink(path("first.png")));
        EXPECT_TRUE(fs::is_symlink(path("second.png")));
        EXPECT_EQ(readPng(path("deep/real.png")).width, width);
    }
    fs::create_symlink(path("deep/real.png"), path("absolute.png"));
    exported("absolute.png", options(40, 20));
    EXPECT_EQ(readPng(path("deep/real.png")).width, 40);
}

TEST_F(ExportedFile, CanHaveAnyName)
{
    for (const std::string& name :
         {std::string(250, 'x') + ".png", std::string("Höhe \"1\" $(x).png"), std::string("-")}) {
        exported(name, options(20, 20));
        EXPECT_EQ(readPng(path(name)).problem, "");
    }
    const std::string before = fs::current_path().string();
    fs::current_path(folder);
    const VelExportImageOptions wanted = options(25, 20);
    EXPECT_EQ(VelUtilExportImage("here.png", &wanted), 1) << VelUtilLastErrorMessage();
    fs::current_path(before);
    EXPECT_EQ(readPng(path("here.png")).width, 25);
}

TEST_F(ExportedFile, NamesThatCannotBeWrittenToAreRefusedBeforeAnythingIsDrawn)
{
    write("plain", "");
    const std::string plain = fs::path(folder).parent_path() / "plain";
    fs::create_symlink("circle.png", path("circle.png"));
    expectRefusal(folder, options(20, 20), {folder, "is a folder. Choose"});
    expectRefusal(folder + "/", options(20, 20), {"is a folder. Choose"});
    expectRefusal(path("missing/a.png"), options(20, 20), {"missing/a.png", "folder does not exist", "Create"});
    expectRefusal(path("missing/"), options(20, 20), {"is a folder. Choose"});
    expectRefusal(plain + "/a.png", options(20, 20), {"not a folder"});
    expectRefusal(path(std::string(256, 'x')), options(20, 20), {"name is too long", "shorter"});
    expectRefusal(path("circle.png"), options(20, 20), {"leads nowhere"});
    EXPECT_TRUE(service.created.empty());
}

TEST_F(ExportedFile, WithoutTheRightToWriteNothingChanges)
{
    const std::string file = exported("a.png", options(20, 20));
    const std::string older = content(file);
    fs::permissions(fs::path(folder).parent_path(), fs::perms::all);
    ASSERT_EQ(chmod(file.c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
    {
        const OrdinaryUser ordinary;
        expectRefusal(file, options(30, 20), {"a.png", "no right to write", "another"});
    }
    EXPECT_EQ(content(file), older);
    ASSERT_EQ(chmod(file.c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0555), 0);
    {
        const OrdinaryUser ordinary;
        expectRefusal(file, options(30, 20), {"no right to write"});
        expectRefusal(path("b.png"), options(30, 20), {"no right to write"});
    }
    ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
    EXPECT_EQ(content(file), older);
}

TEST_F(ExportedFile, AnOlderOneStaysWhenTheNewOneDoesNotFit)
{
    load(gridFile());
    const std::string file = exported("a.png", options(40, 30));
    const std::string older = content(file);
    {
        const FileSizeLimit limit(2000);
        expectRefusal(file, options(400, 300), {"a.png", "larger than a file may be", "Reduce"});
        expectRefusal(path("b.png"), options(400, 300), {"larger than a file may be"});
    }
    EXPECT_EQ(content(file), older);
    exported("a.png", options(400, 300));
}

TEST_F(ExportedFile, AFullDiskIsTold)
{
    load(gridFile());
    expectRefusal("/dev/full", options(400, 300), {"/dev/full", "no space left", "Make space"});
    struct stat status = {};
    ASSERT_EQ(stat("/dev/full", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode)) << "a device is written to and not replaced";
}

TEST_F(ExportedFile, AnOlderOneStaysWhenTheDiskIsFull)
{
    load(gridFile());
    const std::string disk = path("disk");
    fs::create_directory(disk);
    if (mount("none", disk.c_str(), "tmpfs", 0, "size=16k") != 0)
        GTEST_SKIP() << "only the superuser can make a small disk";
    const std::string file = exported("disk/a.png", options(20, 20));
    const std::string older = content(file);
    expectRefusal(file, options(900, 700), {"no space left"});
    EXPECT_EQ(content(file), older);
    EXPECT_EQ(std::distance(fs::directory_iterator(disk), {}), 1);
    EXPECT_EQ(umount(disk.c_str()), 0);
}

} // namespace
} // namespace velmora::test
