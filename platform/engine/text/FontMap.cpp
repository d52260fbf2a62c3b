#include "engine/text/FontMap.h"

#include "exception/ExceptionBase.h"

#include <pango/pangofc-font.h>
#include <pango/pangofc-fontmap.h>
#include <pango/pangoft2.h>

namespace velmora::engine {

namespace {

// Text takes one colour and any size: pictures in colour and bitmaps of one size are of no use. A variable font is
// listed a second time by its named styles, which stay.
constexpr char Rejected[] = R"(<?xml version="1.0"?>
<fontconfig><selectfont><rejectfont>
  <pattern><patelt name="scalable"><bool>false</bool></patelt></pattern>
  <pattern><patelt name="color"><bool>true</bool></patelt></pattern>
  <pattern><patelt name="variable"><bool>true</bool></patelt></pattern>
</rejectfont></selectfont></fontconfig>)";

const FcChar8* fcText(const char* text)
{
    return reinterpret_cast<const FcChar8*>(text);
}

[[noreturn]] void throwNoFont()
{
    throw ExceptionBase("No font was found for the text of a plot. Install one, for example DejaVu Sans.", false);
}

// Of its own: what the host does to the fonts of its process changes no picture.
FontConfigOwner systemFonts()
{
    FontConfigOwner config(FcInitLoadConfig());
    if (!config || !FcConfigParseAndLoadFromMemory(config.get(), fcText(Rejected), FcTrue) ||
        !FcConfigBuildFonts(config.get()))
        throwNoFont();
    return config;
}

// Behind the language of the text stands that of the locale, which would choose among fonts too.
void keepFirstLanguage(FcPattern* pattern)
{
    FcChar8* found = nullptr;
    if (FcPatternGetString(pattern, FC_LANG, 0, &found) != FcResultMatch)
        return;
    const std::string language = reinterpret_cast<const char*>(found);
    FcPatternDel(pattern, FC_LANG);
    FcPatternAddString(pattern, FC_LANG, fcText(language.c_str()));
}

// Hinted widths would not grow evenly with the size.
void adaptPattern(FcPattern* pattern, gpointer)
{
    keepFirstLanguage(pattern);
    FcPatternDel(pattern, FC_HINTING);
    FcPatternAddBool(pattern, FC_HINTING, FcFalse);
}

GObjectOwner<PangoFontMap> makeFontMap()
{
    GObjectOwner<PangoFontMap> fonts(pango_ft2_font_map_new());
    pango_ft2_font_map_set_resolution(PANGO_FT2_FONT_MAP(fonts.get()), 72, 72);
    const FontConfigOwner config = systemFonts();
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(fonts.get()), config.get());
    pango_fc_font_map_set_default_substitute(PANGO_FC_FONT_MAP(fonts.get()), adaptPattern, nullptr, nullptr);
    return fonts;
}

FontFileName fileNameOf(PangoFont* font)
{
    const FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
    FontFileName name;
    FcChar8* path = nullptr;
    if (FcPatternGetString(pattern, FC_FILE, 0, &path) == FcResultMatch)
        name.path = reinterpret_cast<const char*>(path);
    FcPatternGetInteger(pattern, FC_INDEX, 0, &name.index);
    FcBool isEmboldened = FcFalse;
    FcPatternGetBool(pattern, FC_EMBOLDEN, 0, &isEmboldened);
    name.isEmboldened = isEmboldened != FcFalse;
    return name;
}

} // namespace

FontMap& FontMap::instance()
{
    static FontMap map;
    return map;
}

FontMap::FontMap() : m_fonts(makeFontMap()), m_context(pango_font_map_create_context(m_fonts.get()))
{
    pango_context_set_language(context(), pango_language_from_string("en"));
    pango_context_set_base_dir(context(), PANGO_DIRECTION_WEAK_LTR);
    pango_context_set_round_glyph_positions(context(), FALSE);
}

DescriptionOwner FontMap::textFont(bool isBold) const
{
    DescriptionOwner description(pango_font_description_new());
    pango_font_description_set_family_static(description.get(), "DejaVu Sans, sans");
    pango_font_description_set_weight(description.get(), isBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(description.get(), ShapingSize * PANGO_SCALE);
    return description;
}

const FontFile& FontMap::textFontFile(bool isBold)
{
    const DescriptionOwner description = textFont(isBold);
    const GObjectOwner<PangoFont> font(pango_context_load_font(context(), description.get()));
    if (!font)
        throwNoFont();
    return fileOf(font.get());
}

const FontFile& FontMap::fileOf(PangoFont* font)
{
    const FontFileName name = fileNameOf(font);
    std::unique_ptr<FontFile>& file = m_files[name];
    if (!file)
        file = std::make_unique<FontFile>(name);
    return *file;
}

} // namespace velmora::engine
