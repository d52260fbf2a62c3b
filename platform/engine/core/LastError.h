#pragma once

#include <string>

namespace velmora::engine {

/// Keeps a text for VelUtilLastErrorMessage(): what is wrong, and what helps.
void setLastError(const std::string& message) noexcept;
/// Keeps the text of the exception that is being handled. Call it from a catch clause only.
void setLastErrorFromException(const std::string& whatFailed) noexcept;
const std::string& lastError();
void clearLastError();
/// What the last successful load has to tell, one note a line.
void setLoadNotes(std::string notes);
const std::string& loadNotes();

} // namespace velmora::engine
