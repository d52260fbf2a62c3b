#include "engine/export/TargetFile.h"

#include "engine/export/ExportFailure.h"
#include "engine/export/FileError.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::engine {
namespace {

constexpr int MostLinks = 40;
constexpr int MostTries = 1000;
constexpr mode_t Permissions = 0777;
constexpr std::size_t LongestName = 255;

/// Where a chain of symbolic links leads, whether or not there is a file; "" when it is a circle.
std::string followLinks(std::string path)
{
    namespace fs = std::filesystem;
    for (int i = 0; i < MostLinks; ++i) {
        std::error_code notALink;
        const fs::path target = fs::read_symlink(path, notALink);
        if (notALink)
            return path;
        path = (fs::path(path).parent_path() / target).string(); // an absolute target replaces all
    }
    return "";
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

/// A name in the same folder, recognisable when the file is found after a crash.
std::string temporaryName(const std::string& path, int number)
{
    const std::string folder = folderOf(path);
    const std::string ending = "." + std::to_string(getpid()) + "-" + std::to_string(number) + ".part";
    return folder + "." + path.substr(folder.size()).substr(0, LongestName - 1 - ending.size()) + ending;
}

// A rename lasts only when the folder is on the disk too. Some file systems cannot do that.
void flushFolder(const std::string& path)
{
    const std::string folder = folderOf(path);
    const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    fsync(file);
    close(file);
}

} // namespace

TargetFile::TargetFile(const std::string& name) : m_name(name), m_path(followLinks(name))
{
    if (name.empty())
        throw ExportFailure("There is no file name to write to. Choose one.");
    struct stat older = {};
    const bool exists = stat(name.c_str(), &older) == 0;
    if (!exists && errno != ENOENT)
        fail(errno);
    if (m_path.empty())
        fail(ELOOP);
    if (m_path.back() == '/' || (exists && S_ISDIR(older.st_mode)))
        fail(EISDIR);
    if (exists && !S_ISREG(older.st_mode))
        openDirectly();
    else
        openBeside(exists ? &older : nullptr);
}

TargetFile::~TargetFile()
{
    if (m_file >= 0)
        close(m_file);
    if (!m_temporary.empty())
        unlink(m_temporary.c_str());
}

void TargetFile::openDirectly()
{
    m_file = open(m_name.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (m_file < 0)
        fail(errno);
}

// Replacing needs the right to the folder only; but a file that is protected shall stay.
void TargetFile::openBeside(const struct stat* older)
{
    if (older && faccessat(AT_FDCWD, m_path.c_str(), W_OK, AT_EACCESS) != 0)
        fail(errno);
    openTemporary(older ? older->st_mode & Permissions : 0666);
    if (older)
        takeOver(*older);
}

// Created like any new file, so that it gets the permissions of one.
void TargetFile::openTemporary(unsigned permissions)
{
    for (int i = 0; i < MostTries && m_file < 0; ++i) {
        const std::string name = temporaryName(m_path, i);
        m_file = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
        if (m_file >= 0)
            m_temporary = name;
        else if (errno != EEXIST)
            break;
    }
    if (m_file < 0)
        fail(errno);
}

// As far as that is allowed and the file system knows such things. The permissions come after the
// owner, because a new owner resets some.
void TargetFile::takeOver(const struct stat& older)
{
    bool same = fchown(m_file, older.st_uid, older.st_gid) == 0;
    same = fchmod(m_file, older.st_mode & Permissions) == 0 && same;
    static_cast<void>(same);
}

bool TargetFile::write(const void* bytes, std::size_t count) noexcept
{
    const auto* next = static_cast<const char*>(bytes);
    while (count > 0 && m_error == 0) {
        const ssize_t written = ::write(m_file, next, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            m_error = written < 0 ? errno : EIO;
            break;
        }
        next += written;
        count -= static_cast<std::size_t>(written);
    }
    return m_error == 0;
}

void TargetFile::requireNoError() const
{
    if (m_error != 0)
        fail(m_error);
}

void TargetFile::commit()
{
    requireNoError();
    const bool isDevice = m_temporary.empty();
    // Only the disk's answer shows that all is written; a device need not have one.
    if (!isDevice && fsync(m_file) != 0)
        fail(errno);
    closeOrFail();
    if (isDevice)
        return;
    if (std::rename(m_temporary.c_str(), m_path.c_str()) != 0)
        fail(errno);
    m_temporary.clear();
    flushFolder(m_path);
}

void TargetFile::closeOrFail()
{
    const int file = m_file;
    m_file = -1;
    if (close(file) != 0)
        fail(errno);
}

void TargetFile::fail(int error)
{
    throw ExportFailure(fileErrorText(error));
}

} // namespace velmora::engine
