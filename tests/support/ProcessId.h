#pragma once

#include <QtGlobal>

class QProcess;

namespace velmora::test {

/// The number of a process that runs; 0 when none does.
qint64 processIdOf(const QProcess& process);

} // namespace velmora::test
