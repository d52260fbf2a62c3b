#pragma once

#include <exception>
#include <string>

namespace velmora {

/// Root of the exceptions that cross the boundary between engine, binding and host.
class __attribute__((visibility("default"))) ExceptionBase : public std::exception {
public:
    /// `message` is English text for a person. `logged` tells whether it was written to the
    /// engine's log already, so that the handler does not write it again.
    explicit ExceptionBase(std::string message, bool logged = false);
    ~ExceptionBase() override;

    /// @{
    /// The message as it was given.
    const char* what() const noexcept override;
    const std::string& message() const noexcept;
    /// @}
    /// Whether the message was written to the engine's log already.
    bool isLogged() const noexcept;

private:
    std::string m_message;
    bool m_logged;
};

} // namespace velmora
