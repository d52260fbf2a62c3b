#include "tests/support/QtWarnings.h"

#include <QtGlobal>

#include <QString>
#include <cstdio>

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

#if QT_VERSION >= 0x050000
    static inline QtMessageHandler previous = nullptr;

    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        collect(type, text.toStdString());
        previous(type, context, text);
    }
    static void install()
    {
        previous = qInstallMessageHandler(handle);
    }
    static void remove()
    {
        qInstallMessageHandler(previous);
    }
#else
    static inline QtMsgHandler previous = nullptr;

    static void handle(QtMsgType type, const char* text)
    {
        collect(type, text);
        // Null stands for the toolkit's own way, which cannot be called.
        if (previous)
            previous(type, text);
        else
            std::fprintf(stderr, "%s\n", text);
    }
    static void install()
    {
        previous = qInstallMsgHandler(handle);
    }
    static void remove()
    {
        qInstallMsgHandler(previous);
    }
#endif
};

QtWarnings::QtWarnings() : m_outer(innermost)
{
    innermost = this;
    if (!m_outer)
        QtWarningsHandler::install();
}

QtWarnings::~QtWarnings()
{
    if (!m_outer)
        QtWarningsHandler::remove();
    innermost = m_outer;
}

} // namespace velmora::test
