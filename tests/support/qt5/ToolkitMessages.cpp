#include "tests/support/ToolkitMessages.h"

#include <QString>

namespace velmora::test {

namespace {

void (*shownTo)(QtMsgType, const std::string&) = nullptr;
QtMessageHandler previous = nullptr;

void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    shownTo(type, text.toStdString());
    previous(type, context, text);
}

} // namespace

void showMessagesTo(void (*onlooker)(QtMsgType, const std::string&))
{
    shownTo = onlooker;
    if (onlooker)
        previous = qInstallMessageHandler(handle);
    else
        qInstallMessageHandler(previous);
}

} // namespace velmora::test
