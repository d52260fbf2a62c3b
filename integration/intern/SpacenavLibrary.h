#pragma once

namespace velmora::sdk::integration::intern {

/// What is used of libspnav, by which a program finds the daemon of the 3D mice. It is loaded when it is first asked
/// for, and where it is not installed nothing is missed. It keeps one connection a process.
struct SpacenavLibrary {
    int (*open)(); ///< -1: there is no daemon, or the program has a connection of its own already
    int (*close)();
    int (*fd)();
    int (*protocol)(); ///< null before version 1.0, which knows protocol 0 alone
};

/// Null when the library is not there.
const SpacenavLibrary* spacenavLibrary();

/// As `library.open()`; true when there is a connection. A daemon that ends meanwhile is no reason for the process to
/// end: the library writes to it, and would be answered with a SIGPIPE.
bool openConnection(const SpacenavLibrary& library);

} // namespace velmora::sdk::integration::intern
