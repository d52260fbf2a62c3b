#pragma once

#include <cstddef>
#include <string>

struct stat;

namespace velmora::engine {

/// A file that comes into being, or replaces an older one, only as a whole: what is written goes to
/// a hidden file beside it, which takes the name when it is complete and on the disk. Without
/// `commit` the hidden file is removed and an older file is as it was.
///
/// A symbolic link stays, and the file it leads to is replaced. A device or pipe is written to.
class TargetFile {
public:
    /// Throws ExportFailure when the name cannot be written to.
    explicit TargetFile(const std::string& name);
    ~TargetFile();
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;

    /// False when that failed; `commit` then says why.
    bool write(const void* bytes, std::size_t count) noexcept;
    /// Throws ExportFailure with what has gone wrong so far.
    void requireNoError() const;
    void commit();

private:
    void openDirectly();
    void openBeside(const struct stat* older);
    void openTemporary(unsigned permissions);
    void takeOver(const struct stat& older);
    [[noreturn]] static void fail(int error);
    void closeOrFail();

    std::string m_name;      ///< as given
    std::string m_path;      ///< with the links followed
    std::string m_temporary; ///< empty when the target is written directly or is complete
    int m_file = -1;
    int m_error = 0;
};

} // namespace velmora::engine
