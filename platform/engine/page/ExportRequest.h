#pragma once

namespace velmora::engine {

/// What the off-screen image that is drawn next is a part of. An export sets it around its calls
/// to the image service, because the service's `render` names a region only.
struct ExportRequest {
    bool onBlack = false; ///< the ground, which else is white
    int fullWidth = 0;    ///< pixels of the whole picture; 0: the image is the whole picture
    int fullHeight = 0;
    int tileX = 0; ///< the image's lower left corner in the whole picture
    int tileY = 0;
    double pixelsPerPoint = 0; ///< text and line widths; 0: as the size of the picture gives it
    int supersample = 1;       ///< pixels drawn for one of the finished picture, in each direction
    double progressFrom = 0;   ///< the image's share of the progress of the whole
    double progressTo = 1;
};

const ExportRequest& currentExportRequest();

/// Sets the request for its own life.
class ExportRequestScope {
public:
    explicit ExportRequestScope(const ExportRequest& request);
    ~ExportRequestScope();
    ExportRequestScope(const ExportRequestScope&) = delete;
    ExportRequestScope& operator=(const ExportRequestScope&) = delete;

private:
    ExportRequest m_before;
};

/// How the drawing of an off-screen image went. What the image's `render` answers need not tell it.
enum class ImageDrawing {
    NotBegun, ///< its context could not be used
    Done,
    Interrupted,
    Failed
};

/// Of the last image that was drawn, or since it was noted.
ImageDrawing lastImageDrawing();
void noteImageDrawing(ImageDrawing drawing);

} // namespace velmora::engine
