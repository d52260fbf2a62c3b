#include "engine/text/FontFinder.h"

#include "exception/ExceptionBase.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace velmora::engine {

namespace {

template <auto Function>
struct Release {
    template <class Object>
    void operator()(Object* object) const
    {
        Function(object);
    }
};

using Pattern = std::unique_ptr<FcPattern, Release<FcPatternDestroy>>;

const FcChar8* fcText(const char* text)
{
    return reinterpret_cast<const FcChar8*>(text);
}

Pattern patternFor(bool bold)
{
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, fcText("DejaVu Sans"));
    FcPatternAddString(pattern.get(), FC_FAMILY, fcText("sans"));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

} // namespace

FontFile findFont(bool bold)
{
    const Pattern wanted = patternFor(bold);
    FcResult result = FcResultNoMatch;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* path = nullptr;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &path) != FcResultMatch)
        throw ExceptionBase("No font was found for the text of a plot. Install one, for example DejaVu Sans.", false);
    FontFile file;
    file.path = reinterpret_cast<const char*>(path);
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &file.index);
    return file;
}

} // namespace velmora::engine
