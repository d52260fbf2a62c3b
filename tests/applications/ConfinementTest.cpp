#include "tests/applications/Confinement.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {

namespace {

enum Result { WroteInside = 1, WroteOutside = 2, NotConfined = 4 };

bool canWrite(const std::string& fileName)
{
    return static_cast<bool>(std::ofstream(fileName) << "text" << std::flush);
}

/// In a process of its own, for it cannot be undone.
int resultOfConfinedProcess(const std::string& inside, const std::string& outside)
{
    const pid_t process = fork();
    if (process == 0) {
        if (!confineWritingTo(inside))
            _exit(NotConfined);
        _exit((canWrite(inside + "/file") ? WroteInside : 0) | (canWrite(outside + "/file") ? WroteOutside : 0));
    }
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(Confinement, AConfinedProcessWritesToItsFolderAndNowhereElse)
{
    if (!canConfine())
        GTEST_SKIP() << "This kernel has no Landlock.";
    char inside[] = "/tmp/confinement_XXXXXX";
    char outside[] = "/tmp/confinement_XXXXXX";
    ASSERT_TRUE(mkdtemp(inside) && mkdtemp(outside));
    EXPECT_EQ(WroteInside, resultOfConfinedProcess(inside, outside));
    EXPECT_TRUE(canWrite(std::string(outside) + "/file")) << "nobody could";
    for (const std::string folder : {inside, outside}) {
        unlink((folder + "/file").c_str());
        EXPECT_EQ(0, rmdir(folder.c_str()));
    }
}

} // namespace velmora::test
