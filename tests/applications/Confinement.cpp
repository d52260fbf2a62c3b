#include "tests/applications/Confinement.h"

#include <cstdint>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr std::uint64_t Writing = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                  LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                  LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                                  LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                  LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

// The C library has no functions for these.
long version()
{
    return syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
}

bool allow(long rules, const std::string& folder, std::uint64_t access)
{
    landlock_path_beneath_attr below = {};
    below.allowed_access = access;
    below.parent_fd = open(folder.c_str(), O_PATH | O_CLOEXEC);
    const bool added =
        below.parent_fd >= 0 && syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &below, 0) == 0;
    close(below.parent_fd);
    return added;
}

} // namespace

bool canConfine()
{
    return version() >= 1;
}

bool confineWritingTo(const std::string& folder)
{
    landlock_ruleset_attr handled = {};
    handled.handled_access_fs = Writing;
    const long rules = syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0);
    if (rules < 0)
        return false;
    const bool done = allow(rules, folder, Writing) && allow(rules, "/dev", LANDLOCK_ACCESS_FS_WRITE_FILE) &&
                      prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    close(static_cast<int>(rules));
    return done;
}

} // namespace velmora::test
