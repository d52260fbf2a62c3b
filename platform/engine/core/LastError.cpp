#include "engine/core/LastError.h"

#include <exception>
#include <utility>

namespace velmora::engine {
namespace {

std::string g_lastError;
std::string g_loadNotes;

} // namespace

// Without memory for the text the message before it stays.
void setLastError(const std::string& message) noexcept
{
    try {
        g_lastError = message;
    } catch (const std::exception&) {
    }
}

void setLastErrorFromException(const std::string& whatFailed) noexcept
{
    try {
        throw;
    } catch (const std::exception& error) {
        setLastError(whatFailed + ": " + error.what());
    } catch (...) {
        setLastError(whatFailed + " for an unknown reason.");
    }
}

const std::string& lastError()
{
    return g_lastError;
}

void clearLastError()
{
    g_lastError.clear();
}

void setLoadNotes(std::string notes)
{
    g_loadNotes = std::move(notes);
}

const std::string& loadNotes()
{
    return g_loadNotes;
}

} // namespace velmora::engine
