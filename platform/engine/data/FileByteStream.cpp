#include "engine/data/FileByteStream.h"

#include "engine/data/DataReader.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora::engine {

namespace {

[[noreturn]] void fail(const std::string& fileName, const std::string& text)
{
    throw ReadError("\"" + fileName + "\" " + text);
}

[[noreturn]] void failToOpen(const std::string& fileName, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        fail(fileName, "does not exist. Check the name and the folder.");
    if (error == EACCES || error == EPERM)
        fail(fileName, "may not be read. Ask its owner for the permission to read it.");
    fail(fileName, "cannot be opened (" + std::generic_category().message(error) + "). Choose another file.");
}

} // namespace

FileByteStream::FileByteStream(const std::string& fileName) : m_fileName(fileName)
{
    // Not blocking, so that a named pipe without a writer is refused and not waited for.
    m_descriptor = open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_descriptor < 0)
        failToOpen(fileName, errno);
    try {
        inspect();
    } catch (...) {
        close(m_descriptor); // the destructor does not run for what was not fully made
        throw;
    }
}

FileByteStream::~FileByteStream()
{
    close(m_descriptor);
}

void FileByteStream::inspect()
{
    struct stat status = {};
    if (fstat(m_descriptor, &status) != 0)
        failToOpen(m_fileName, errno);
    if (S_ISDIR(status.st_mode))
        fail(m_fileName, "is a folder. Choose a file in it.");
    if (!S_ISREG(status.st_mode))
        fail(m_fileName, "is a device or a pipe. Save its data in a file and read that.");
    m_size = static_cast<std::uint64_t>(status.st_size);
}

std::size_t FileByteStream::read(char* buffer, std::size_t capacity)
{
    ssize_t count = 0;
    do {
        count = ::read(m_descriptor, buffer, capacity);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        fail(m_fileName, "could not be read (" + std::generic_category().message(errno) +
                             "). Check the disk or the network and try again.");
    }
    return static_cast<std::size_t>(count);
}

} // namespace velmora::engine
