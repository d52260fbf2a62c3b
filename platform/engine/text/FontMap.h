#pragma once

#include "engine/text/FontFile.h"
#include "engine/text/Owners.h"

#include <map>
#include <memory>

namespace velmora::engine {

/// The fonts of the system, as Pango chooses among them, and those that are open. For one thread.
class FontMap {
public:
    /// Throws velmora::ExceptionBase when the system has no font.
    static FontMap& instance();

    /// Text is shaped at this size, in pixels. It is large, so that what is rounded then does not count at another
    /// size.
    static constexpr int ShapingSize = 256;

    PangoContext* context() const { return m_context.get(); }
    /// "DejaVu Sans", or the system's sans-serif font where that is not installed.
    DescriptionOwner textFont(bool isBold) const;
    const FontFile& textFontFile(bool isBold);
    const FontFile& fileOf(PangoFont* font);

private:
    FontMap();

    GObjectOwner<PangoFontMap> m_fonts;
    GObjectOwner<PangoContext> m_context;
    std::map<FontFileName, std::unique_ptr<FontFile>> m_files;
};

} // namespace velmora::engine
