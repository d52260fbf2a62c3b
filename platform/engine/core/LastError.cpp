#include "engine/core/LastError.h"

#include <exception>

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

void setLoadNotes(const std::vector<std::string>& notes)
{
    std::string text;
    for (const std::string& note : notes)
        text += (text.empty() ? "" : "\n") + note;
    g_loadNotes = text;
}

const std::string& loadNotes()
{
    return g_loadNotes;
}

} // namespace velmora::engine
