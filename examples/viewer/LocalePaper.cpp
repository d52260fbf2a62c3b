#include "LocalePaper.h"

#include "EngineSession.h"

#include <cstdint>

#include <langinfo.h>
#include <locale.h>

namespace viewer {

namespace {

constexpr int HeightOfLetter = 279; // millimeters
constexpr int HeightOfA4 = 297;

// The C library keeps the number where other entries keep a text.
int heightIn(locale_t locale)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(nl_langinfo_l(_NL_PAPER_HEIGHT, locale)));
}

// Asked before the toolkit takes over the locale of the environment.
int heightOfPaper()
{
    const locale_t locale = newlocale(LC_PAPER_MASK, "", static_cast<locale_t>(nullptr));
    if (!locale)
        return HeightOfA4;
    const int height = heightIn(locale);
    freelocale(locale);
    return height;
}

} // namespace

int paperOfLocale()
{
    const QLatin1String name(heightOfPaper() == HeightOfLetter ? "Letter" : "A4");
    return static_cast<int>(EngineSession::paperNames().indexOf(name));
}

} // namespace viewer
