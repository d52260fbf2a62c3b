#include "exception/ExceptionBase.h"

#include <utility>

namespace velmora {

ExceptionBase::ExceptionBase(std::string message, bool logged) : m_message(std::move(message)), m_logged(logged) {}

ExceptionBase::~ExceptionBase() = default;

const char* ExceptionBase::what() const noexcept
{
    return m_message.c_str();
}

const std::string& ExceptionBase::message() const noexcept
{
    return m_message;
}

bool ExceptionBase::isLogged() const noexcept
{
    return m_logged;
}

} // namespace velmora
