#include "engine/plot/PlotTexts.h"

#include "engine/plot/Palette.h"

namespace velmora::engine {

TextItem plotTitle(const std::string& name, const FrameSize& frame, double top)
{
    const double size = frame.textSize(plotsize::Title);
    const double room = frame.width - 2 * frame.points(plotsize::Edge);
    return {fitted(FontFace::bold(), name, size, room),
            {frame.width / 2, top},
            size,
            Align::Middle,
            Align::End,
            false,
            true,
            palette::Ink};
}

void paintPlotText(Canvas& canvas, const FrameSize& frame, const TextItem& text, bool selected)
{
    TextItem item = text;
    if (selected) {
        canvas.fill(textRect(item).grown(frame.points(1.5)), palette::SelectedGround);
        item.color = palette::SelectedText;
    }
    canvas.text(item);
}

void collectTexts(const std::vector<PlotText>& texts, const Rect& rect, Selection& found)
{
    for (const PlotText& text : texts)
        if (!text.item.text.empty() && rect.meets(textRect(text.item)))
            found.insert({ObjectKind::Text, text.object});
}

} // namespace velmora::engine
