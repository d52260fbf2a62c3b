#include "ColourLegend.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <GL/gl.h>
#include <GL/glext.h>

#include <vtkImageData.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkTextProperty.h>
#include <vtkTextRenderer.h>

namespace velmora::model {
namespace {

constexpr int Colours = 256;
// Brighter is more, for the colour-blind and on grey paper too.
constexpr double Stops[][3] = {{0.267, 0.005, 0.329}, {0.283, 0.141, 0.458}, {0.254, 0.265, 0.530},
                               {0.207, 0.372, 0.553}, {0.164, 0.471, 0.558}, {0.128, 0.567, 0.551},
                               {0.135, 0.659, 0.518}, {0.267, 0.749, 0.441}, {0.478, 0.821, 0.318},
                               {0.741, 0.873, 0.150}, {0.993, 0.906, 0.144}};
constexpr int LastStop = static_cast<int>(sizeof Stops / sizeof *Stops) - 1;
constexpr double NoNumber = 0.6; ///< grey

constexpr double TextPoints = 9;
constexpr double BarWidth = 0.18; ///< of the legend's width
constexpr double BarFrom = 0.15;  ///< of the frame's height
constexpr double BarTo = 0.85;
constexpr int Labels = 5;
constexpr double Ink = 0.2;

std::string label(double value)
{
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 4).ptr;
    return std::string(digits.data(), end);
}

/// As a drawing's tiles have the same pixels as the whole.
double wholePixel(double position)
{
    constexpr double LostDigits = 1e-6;
    return std::floor(position + 0.5 + LostDigits);
}

/// A text as a picture, drawn with a pixel of it on a pixel of the target.
class TextPicture {
public:
    TextPicture(const std::string& text, double height)
    {
        vtkNew<vtkTextProperty> look;
        look->SetFontFamilyToArial();
        look->SetColor(Ink, Ink, Ink);
        look->SetFontSize(std::max(1, static_cast<int>(std::lround(height))));
        constexpr int DotsPerInch = 72; // so that a size is one in pixels
        vtkTextRenderer* const renderer = vtkTextRenderer::GetInstance();
        if (!renderer || !renderer->RenderString(look, text, m_pixels, m_size, DotsPerInch))
            m_size[0] = m_size[1] = 0;
    }
    int width() const { return m_size[0]; }
    int height() const { return m_size[1]; }

    void drawAt(double left, double bottom) const
    {
        if (width() <= 0 || height() <= 0)
            return;
        GLuint texture = 0;
        glGenTextures(1, &texture);
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        int size[3];
        m_pixels->GetDimensions(size);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, size[0], size[1], 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     m_pixels->GetScalarPointer());
        glEnable(GL_TEXTURE_2D);
        const double right = static_cast<double>(width()) / size[0];
        const double top = static_cast<double>(height()) / size[1];
        glColor4d(1, 1, 1, 1);
        glBegin(GL_QUADS);
        glTexCoord2d(0, 0);
        glVertex2d(left, bottom);
        glTexCoord2d(right, 0);
        glVertex2d(left + width(), bottom);
        glTexCoord2d(right, top);
        glVertex2d(left + width(), bottom + height());
        glTexCoord2d(0, top);
        glVertex2d(left, bottom + height());
        glEnd();
        glDisable(GL_TEXTURE_2D);
        glDeleteTextures(1, &texture);
    }

private:
    vtkSmartPointer<vtkImageData> m_pixels = vtkSmartPointer<vtkImageData>::New();
    int m_size[2] = {0, 0};
};

/// The legend in one target: the frame's place with whole pixels.
class LegendDrawing {
public:
    LegendDrawing(const Colouring& colouring, const content::Drawing& drawing)
        : m_colouring(colouring), m_drawing(drawing), m_colours(coloursFor(colouring)),
          m_width(LegendShare * drawing.frameWidth),
          m_left(wholePixel(drawing.frameX + (1 - LegendShare) * drawing.frameWidth)),
          m_barRight(wholePixel(m_left + BarWidth * m_width)), m_bottom(heightAt(0)), m_top(heightAt(1)),
          m_textHeight(std::max(TextPoints * drawing.pixelsPerPoint, drawing.leastText)), m_line(lineWidth())
    {}

    void draw()
    {
        drawBar();
        for (int i = 0; i < Labels; ++i)
            drawLabel(static_cast<double>(i) / (Labels - 1));
        const TextPicture title = fitting(m_colouring.name, m_width);
        title.drawAt(m_left, m_top + std::round(m_textHeight));
    }

private:
    double heightAt(double fraction) const
    {
        return wholePixel(m_drawing.frameY + (BarFrom + fraction * (BarTo - BarFrom)) * m_drawing.frameHeight);
    }

    double lineWidth() const { return std::max(1.0, std::round(m_drawing.pixelsPerPoint * 0.75)); }

    void drawBar() const
    {
        glBegin(GL_QUADS);
        for (int i = 0; i < Colours; ++i) {
            double colour[3];
            const double value = m_colouring.least + (m_colouring.greatest - m_colouring.least) * (i + 0.5) / Colours;
            m_colours->GetColor(value, colour);
            glColor3dv(colour);
            const double bottom = m_bottom + (m_top - m_bottom) * i / Colours;
            const double top = m_bottom + (m_top - m_bottom) * (i + 1) / Colours;
            rectangle(m_left, bottom, m_barRight, top);
        }
        glColor3d(Ink, Ink, Ink);
        rectangle(m_left, m_bottom, m_barRight, m_bottom + m_line);
        rectangle(m_left, m_top - m_line, m_barRight, m_top);
        rectangle(m_left, m_bottom, m_left + m_line, m_top);
        rectangle(m_barRight - m_line, m_bottom, m_barRight, m_top);
        glEnd();
    }

    void drawLabel(double fraction) const
    {
        const double middle = heightAt(fraction);
        const double tick = std::max(2.0, std::round(m_textHeight * 0.35));
        glColor3d(Ink, Ink, Ink);
        glBegin(GL_QUADS);
        rectangle(m_barRight, middle - m_line, m_barRight + tick, middle);
        glEnd();
        const double left = m_barRight + 2 * tick;
        const double value = m_colouring.least * (1 - fraction) + m_colouring.greatest * fraction;
        const TextPicture text = fitting(label(value), m_left + m_width - left);
        text.drawAt(left, middle - std::floor(text.height() / 2.0));
    }

    /// As high as it is to be, but for a frame that is too narrow; never lower than the least.
    TextPicture fitting(const std::string& text, double width) const
    {
        const TextPicture asWanted(text, m_textHeight);
        if (asWanted.width() <= width)
            return asWanted;
        return TextPicture(text, std::max(m_textHeight * width / asWanted.width(), m_drawing.leastText));
    }

    static void rectangle(double left, double bottom, double right, double top)
    {
        glVertex2d(left, bottom);
        glVertex2d(right, bottom);
        glVertex2d(right, top);
        glVertex2d(left, top);
    }

    const Colouring& m_colouring;
    const content::Drawing& m_drawing;
    vtkSmartPointer<vtkScalarsToColors> m_colours;
    double m_width;
    double m_left;
    double m_barRight;
    double m_bottom;
    double m_top;
    double m_textHeight;
    double m_line;
};

} // namespace

vtkSmartPointer<vtkScalarsToColors> coloursFor(const Colouring& colouring)
{
    vtkNew<vtkLookupTable> table;
    table->SetNumberOfTableValues(Colours);
    for (int i = 0; i < Colours; ++i) {
        const double place = static_cast<double>(i) / (Colours - 1) * LastStop;
        const int stop = std::min(static_cast<int>(place), LastStop - 1);
        double colour[3];
        for (int channel = 0; channel < 3; ++channel)
            colour[channel] = Stops[stop][channel] + (place - stop) * (Stops[stop + 1][channel] - Stops[stop][channel]);
        table->SetTableValue(i, colour[0], colour[1], colour[2]);
    }
    table->SetNanColor(NoNumber, NoNumber, NoNumber, 1);
    table->SetTableRange(colouring.least, std::max(colouring.greatest, colouring.least));
    return table.Get();
}

void drawLegend(const Colouring& colouring, const content::Drawing& drawing)
{
    const content::StateGuard guard;
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glMatrixMode(GL_PROJECTION);
    glOrtho(0, drawing.targetWidth, 0, drawing.targetHeight, -1, 1);
    LegendDrawing(colouring, drawing).draw();
}

} // namespace velmora::model
