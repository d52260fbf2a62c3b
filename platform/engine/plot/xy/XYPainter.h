#pragma once

#include "engine/plot/xy/XYLayout.h"

namespace velmora::engine {

/// Draws a plot of lines once. It holds what it draws, so that the plot may change, or go, while
/// the drawing gives way to the application.
class XYPainter {
public:
    XYPainter(const Drawing& drawing, Checkpoint& checkpoint, XYContent content, Selection selection);

    /// False when the checkpoint said to stop.
    bool paint();

private:
    void paintGrid();
    void paintLines();
    void paintLine(std::size_t line, double width, Color color, bool withDots);
    bool isDrawn(std::size_t line, bool selected) const;
    void paintMarkers(std::size_t line);
    void paintAxes();
    void paintTicks(double length, double width);
    void drawWhenLong(Stroke& stroke);
    void paintLegend();
    void paintSample(const LegendSample& sample);
    void paintTexts();
    std::size_t lineSteps() const;
    bool isLineSelected(std::size_t line) const;
    double points(double length) const { return m_frame.points(length); }

    XYContent m_content;
    Selection m_selection;
    FrameSize m_frame;
    XYLayout m_layout;
    Canvas m_canvas;
};

} // namespace velmora::engine
