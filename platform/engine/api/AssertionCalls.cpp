#include "engine/VelEng.h"

#include <cstdio>
#include <cstdlib>

namespace {

using Handler = void (*)(const char* kind, const char* condition, const char* message, const char* function);

const char* orEmpty(const char* text)
{
    return text ? text : "";
}

void printAndEnd(const char* kind, const char* condition, const char* message, const char* function)
{
    std::fprintf(stderr, "%s failed: %s\n  %s\n  in %s\n", orEmpty(kind), orEmpty(condition), orEmpty(message),
                 orEmpty(function));
    std::abort();
}

Handler g_handler = printAndEnd;

} // namespace

void VelEngDoVUAssert(const char* kind, const char* condition, const char* message, const char* function)
{
    g_handler(kind, condition, message, function);
}

void VelEngSetVUAssertHandler(Handler handler)
{
    g_handler = handler ? handler : printAndEnd;
}
