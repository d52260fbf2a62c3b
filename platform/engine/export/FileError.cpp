#include "engine/export/FileError.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>

namespace velmora::engine {
namespace {

struct Meaning {
    int error;
    const char* text;
};

constexpr const char* NoRight = "There is no right to write to it. Choose another file or folder, or get the right.";

constexpr Meaning Meanings[] = {
    {ENOSPC, "There is no space left on its disk. Make space or choose another folder."},
    {EDQUOT, "The disk quota is used up. Make space or choose another folder."},
    {EFBIG, "It would be larger than a file may be here. Reduce the image size or choose another folder."},
    {EACCES, NoRight},
    {EPERM, NoRight},
    {EROFS, "Its disk can only be read. Choose another folder."},
    {ENOENT, "Its folder does not exist. Create the folder or choose another one."},
    {ENOTDIR, "A part of its path is not a folder. Choose another folder."},
    {EISDIR, "It is a folder. Choose the name of a file."},
    {ENAMETOOLONG, "Its name is too long. Choose a shorter one."},
    {ELOOP, "It is a symbolic link that leads nowhere. Choose another name."},
    {EMFILE, "Too many files are open. Close some and try again."},
    {ENFILE, "Too many files are open. Close some and try again."},
    {EIO, "Its disk reports an error. Choose another disk."},
};

} // namespace

std::string fileErrorText(int error)
{
    const auto* const found = std::find_if(std::begin(Meanings), std::end(Meanings),
                                           [error](const Meaning& meaning) { return meaning.error == error; });
    if (found != std::end(Meanings))
        return found->text;
    return std::generic_category().message(error) + ". Choose another file or folder.";
}

} // namespace velmora::engine
