#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/data/DataSet.h"

#include <stdexcept>
#include <string>

namespace velmora::engine {

class ByteStream;

/// A file could not be read. The text names the file, the line where there is one, what is wrong
/// and what helps.
class ReadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

using ReadInterrupted = content::Interrupted;

/// Reads a delimited table or an ESRI ASCII grid; which of them the content tells, not the name.
/// Throws ReadError, or ReadInterrupted when `checkpoint` said so.
DataSet readDataFile(const std::string& fileName, Checkpoint& checkpoint);

/// The same from bytes of any origin; `fileName` is what messages and the data set name.
DataSet readData(ByteStream& stream, const std::string& fileName, Checkpoint& checkpoint);

} // namespace velmora::engine
