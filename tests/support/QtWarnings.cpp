#include "tests/support/QtWarnings.h"

#include "tests/support/ToolkitMessages.h"

namespace velmora::test {

namespace {

/// The innermost one alive.
QtWarnings* innermost = nullptr;

} // namespace

struct QtWarningsHandler {
    static void collect(QtMsgType type, const std::string& message)
    {
        if (type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg)
            innermost->m_messages.push_back(message);
    }
};

QtWarnings::QtWarnings() : m_outer(innermost)
{
    innermost = this;
    if (!m_outer)
        showMessagesTo(&QtWarningsHandler::collect);
}

QtWarnings::~QtWarnings()
{
    if (!m_outer)
        showMessagesTo(nullptr);
    innermost = m_outer;
}

} // namespace velmora::test
