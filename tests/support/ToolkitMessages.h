#pragma once

#include <QtGlobal>
#include <string>

namespace velmora::test {

/// Shows the toolkit's messages to the function as well, from now on; null: to nobody any more. They still go where
/// they went before.
void showMessagesTo(void (*onlooker)(QtMsgType type, const std::string& message));

} // namespace velmora::test
