#include "tests/support/ToolkitMessages.h"

#include <cstdio>

namespace velmora::test {

namespace {

void (*shownTo)(QtMsgType, const std::string&) = nullptr;
QtMsgHandler previous = nullptr;

void handle(QtMsgType type, const char* text)
{
    shownTo(type, text);
    // Null stands for the toolkit's own way, which cannot be called.
    if (previous)
        previous(type, text);
    else
        std::fprintf(stderr, "%s\n", text);
}

} // namespace

void showMessagesTo(void (*onlooker)(QtMsgType, const std::string&))
{
    shownTo = onlooker;
    if (onlooker)
        previous = qInstallMsgHandler(handle);
    else
        qInstallMsgHandler(previous);
}

} // namespace velmora::test
