#include "engine/text/ShapedLine.h"

#include "engine/text/CodeFrame.h"
#include "engine/text/FontMap.h"
#include "engine/text/Languages.h"
#include "engine/text/PlainText.h"

namespace velmora::engine {

namespace {

constexpr double PangoUnitsAnEm = double(FontMap::ShapingSize) * PANGO_SCALE;

GObjectOwner<PangoLayout> layOut(const std::string& line, bool isBold)
{
    const FontMap& fonts = FontMap::instance();
    GObjectOwner<PangoLayout> layout(pango_layout_new(fonts.context()));
    const DescriptionOwner description = fonts.textFont(isBold);
    const AttributesOwner attributes(pango_attr_list_new());
    addLanguages(attributes.get(), line);
    pango_layout_set_font_description(layout.get(), description.get());
    pango_layout_set_attributes(layout.get(), attributes.get());
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    pango_layout_set_text(layout.get(), line.data(), static_cast<int>(line.size()));
    return layout;
}

void addRun(ShapedLine& line, const PangoGlyphItem& run, const FontFile& digits)
{
    const FontFile& font = FontMap::instance().fileOf(run.item->analysis.font);
    for (int i = 0; i < run.glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& info = run.glyphs->glyphs[i];
        if (info.glyph == PANGO_GLYPH_EMPTY) {
            line.width += info.geometry.width / PangoUnitsAnEm;
        } else if (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) {
            addCodeFrame(line, info.glyph & ~static_cast<PangoGlyph>(PANGO_GLYPH_UNKNOWN_FLAG), digits);
        } else {
            line.glyphs.push_back({&font, info.glyph, line.width + info.geometry.x_offset / PangoUnitsAnEm,
                                   -info.geometry.y_offset / PangoUnitsAnEm, 1});
            line.width += info.geometry.width / PangoUnitsAnEm;
        }
    }
}

} // namespace

ShapedLine shapeLine(const std::string& text, bool isBold)
{
    ShapedLine line;
    const FontFile& digits = FontMap::instance().textFontFile(isBold);
    const GObjectOwner<PangoLayout> layout = layOut(oneLine(text), isBold);
    const PangoLayoutLine* first = pango_layout_get_line_readonly(layout.get(), 0);
    for (const GSList* run = first->runs; run; run = run->next)
        addRun(line, *static_cast<const PangoGlyphItem*>(run->data), digits);
    return line;
}

} // namespace velmora::engine
