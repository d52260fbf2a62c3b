#pragma once

#include <string>
#include <vector>

namespace velmora::test {

/// Collects what the toolkit warns of while it lives; the messages still go where they went before.
/// For one thread, and one inside another only as their scopes are.
class QtWarnings {
public:
    QtWarnings();
    ~QtWarnings();
    QtWarnings(const QtWarnings&) = delete;
    QtWarnings& operator=(const QtWarnings&) = delete;

    /// Warnings and worse, in their order.
    const std::vector<std::string>& messages() const { return m_messages; }

private:
    friend struct QtWarningsHandler;

    QtWarnings* m_outer;
    std::vector<std::string> m_messages;
};

} // namespace velmora::test
