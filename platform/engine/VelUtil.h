#pragma once

/// \file
/// The engine's plain function entry points for everybody: hosts, the binding, the toolbox. All of
/// them belong to the GUI thread and need a started engine unless they say otherwise. Texts are
/// UTF-8. A function that returns int answers 1 for success and 0 for failure; after a failure
/// VelUtilLastErrorMessage() says what was wrong and what helps.
///
/// What is marked "reference platform only" the binding does not call: a host that uses it is written
/// for this engine, and for another one replaces it by what that one has.

#include "engine/VelExport.h"

/// An argument list of the engine; velmora::toolbox::ArgList owns one.
struct VelArgList;

extern "C" {

// ---- state

/// 1 while the engine works: it loads, exports, or draws because it was told to (VelUtilWorkFinish()); not
/// while it refines a picture that already shows. Works without a started engine.
VELMORA_PLATFORM_EXPORT int VelUtilIsBusy();
/// Whether the binding should print what it does ("Interface"/"PrintDebug" is on, or the
/// environment variable VELMORA_PRINT_DEBUG is set to anything but 0).
VELMORA_PLATFORM_EXPORT bool VelUtilInternalIsPrintDebugOn();

// ---- the last message

/// The last error, or "" when there is none. Valid until the next engine call.
VELMORA_PLATFORM_EXPORT const char* VelUtilLastErrorMessage();
/// Forgets the last error.
VELMORA_PLATFORM_EXPORT void VelUtilLastErrorMessageClear();
/// Shows the last error, if any, through the message box service; true when there was one to show.
VELMORA_PLATFORM_EXPORT bool VelUtilDialogLastMessageBox();
/// 1 when the last load, image export or page rendering ended because it was asked to stop. Reference
/// platform only.
VELMORA_PLATFORM_EXPORT int VelUtilWasInterrupted();
/// What the last successful load has to tell, one note a line (The column "weather" holds text and is
/// left out.), or "". Reference platform only.
VELMORA_PLATFORM_EXPORT const char* VelUtilLastLoadNotes();

// ---- data and pages; they apply to the active page. Reference platform only

/// Loads a delimited table or an ESRI ASCII grid into the active page, in a frame of its own that
/// fills the paper, in place of what the page showed. After a failure the page shows what it
/// showed before. Refused while another load is under way.
VELMORA_PLATFORM_EXPORT int VelUtilDataLoad(const char* fileName);
/// The same, but shows what the page showed as far as the data in the file have it: from where, which columns, by their
/// names, and which range of them. An axis that showed all its values shows all. For a file that has changed.
VELMORA_PLATFORM_EXPORT int VelUtilDataReload(const char* fileName);
/// One line on what the active page shows ("144 x 144 grid, 1 gap"), or "".
VELMORA_PLATFORM_EXPORT const char* VelUtilDataDescription();
/// What a person should know about how the data of the active page were read, one note a line ("The column "b": 'wet'
/// in line 3 is no number and shows as a gap."), or "". Valid until it is called again.
VELMORA_PLATFORM_EXPORT const char* VelUtilDataNotes();
/// What the data of the active page are, for a person, in lines whose fields are separated by tabs, or "". Of a table
/// the first line has the titles "Column", "Unit", "Kind", "Values", "Gaps", "Smallest", "Largest" and "Left out
/// because", and each further line tells of one column of the file; the kind is numbers, dates, text or empty, and the
/// last field is empty for a column that shows. Of a grid each line has a name and its value: "Rows", "Columns",
/// "Extent in x", "Extent in y" and "Spacing" (in map units), "Smallest", "Largest", "Gaps". Valid until it is called
/// again.
VELMORA_PLATFORM_EXPORT const char* VelUtilDataDetails();
/// The fraction of the current work that is done, 0 to 1; 1 when the engine is not busy.
VELMORA_PLATFORM_EXPORT double VelUtilWorkProgress();
/// 1 when the active page shows its full picture, 0 while it shows a coarse one, because that is being
/// refined or was interrupted.
VELMORA_PLATFORM_EXPORT int VelUtilPageIsComplete();
/// 1 when drawing the active page was interrupted and nothing has asked for it again.
VELMORA_PLATFORM_EXPORT int VelUtilPageIsInterrupted();
/// Draws the full picture after an interruption, at the engine's next turn.
VELMORA_PLATFORM_EXPORT void VelUtilPageFinish();
/// Asks for the active page to be drawn anew at the engine's next turn.
VELMORA_PLATFORM_EXPORT void VelUtilPageRedraw();
/// Works off whatever is waiting to be drawn now, in slices, before it returns; 0 when it was
/// interrupted or failed. Not from inside a paint event.
VELMORA_PLATFORM_EXPORT int VelUtilWorkFinish();

// ---- the view of the active page; distances in pixels of its drawing area, y downwards. Reference
//      platform only

/// 1 when the page shows a surface, which can be turned, 0 for lines and an empty page.
VELMORA_PLATFORM_EXPORT int VelUtilViewCanRotate();
/// Turns a surface: degrees about the vertical, degrees of tilt. Nothing for a page of lines.
VELMORA_PLATFORM_EXPORT void VelUtilViewRotate(double aboutVertical, double tilt);
/// Moves a surface, or the range of the axes of a plot of lines.
VELMORA_PLATFORM_EXPORT void VelUtilViewTranslate(double dx, double dy);
/// Zooms by a factor (above 1: nearer) about the point x, y.
VELMORA_PLATFORM_EXPORT void VelUtilViewZoom(double factor, double x, double y);
/// Shows what lies between the two corners as large as the drawing area; lines fill it in both directions.
VELMORA_PLATFORM_EXPORT void VelUtilViewZoomTo(double x1, double y1, double x2, double y2);
/// Zooms the axis of a plot of lines that is at x, y alone, about that point. 0 where there is none.
VELMORA_PLATFORM_EXPORT int VelUtilViewZoomAxis(double factor, double x, double y);
/// Shows all data and, for a surface, from the direction it was first shown from.
VELMORA_PLATFORM_EXPORT void VelUtilViewFit();
/// Shows all data and turns nothing: a surface is seen from where it was seen before.
VELMORA_PLATFORM_EXPORT void VelUtilViewShowAll();

/// Shows all of what can be turned without perspective: 0 from above with the north up, as a map, 1 from the south, 2
/// from the east. Turning it gives the perspective back.
VELMORA_PLATFORM_EXPORT int VelUtilViewFrom(int side);
/// The view as a text to keep, "" for an empty page: which part of the axes a plot of lines shows, and their scales;
/// from where and how near a surface is seen. Two views are the same when their texts are. Valid until the next call.
VELMORA_PLATFORM_EXPORT const char* VelUtilViewState();
/// Shows a view that VelUtilViewState() told of the same data. 0, and nothing has changed, for any other text.
VELMORA_PLATFORM_EXPORT int VelUtilViewSetState(const char* state);

/// The value that the picture shows at x, y or near it, on one line: "speed = 12.5, day = 2026-03-01" for the value
/// of a line that stands nearest, "x = 120, y = 340, z = 55.2" for the cell of a grid. "" where there is none, and
/// while the engine is busy. `xShown` and `yShown` get where it is shown; both may be null. It takes no longer for
/// large data than a person notices. Valid until the next call.
VELMORA_PLATFORM_EXPORT const char* VelUtilViewValueAt(double x, double y, double* xShown, double* yShown);
/// Marks a place of the drawing area over the picture, which is not drawn anew for that. The mark goes with the next
/// change of what the page shows. Nothing while the engine is busy, and without framebuffer objects.
VELMORA_PLATFORM_EXPORT void VelUtilViewMark(double x, double y);
/// Takes the mark away.
VELMORA_PLATFORM_EXPORT void VelUtilViewUnmark();

// ---- the lines of the active page, by their numbers from 1. Reference platform only

/// The line whose entry in the legend is at x, y, in pixels of the drawing area; 0 where there is none.
VELMORA_PLATFORM_EXPORT int VelUtilLegendLineAt(double x, double y);
/// 1 when the line is shown, 0 when it is hidden or there is no such line.
VELMORA_PLATFORM_EXPORT int VelUtilLineIsShown(int line);
/// Shows (1) or hides (0) a line. A hidden one is pale in the legend, cannot be selected and does not count for
/// VelUtilViewFit() and VelUtilViewShowAll(). 0 for a line that the page does not have.
VELMORA_PLATFORM_EXPORT int VelUtilLineShow(int line, int shown);
/// Shows (1) or hides (0) all lines.
VELMORA_PLATFORM_EXPORT void VelUtilLineShowAll(int shown);
/// Shows this line and no other; when that is so already, all lines. 0 for a line that the page does not have.
VELMORA_PLATFORM_EXPORT int VelUtilLineShowAlone(int line);

/// The columns of the active page that can be drawn, one a line, in fields separated by tabs: name, unit, the number of
/// the column's line, or 0 for the horizontal axis, the line's colour (#005c9e), and the lengths of its dashes and gaps
/// in widths of the line (6 4), none for an unbroken one and "points" for one that is drawn as points. "" on a page
/// without lines. Valid until it is called again.
VELMORA_PLATFORM_EXPORT const char* VelUtilColumnDetails();
/// Draws the lines over another column, by its number from 1 in VelUtilColumnDetails(), or over the row numbers (0),
/// and shows them all. Over a column that goes to and fro they are drawn as points. The lines' numbers change with it,
/// and large data take their time. 0 for a column that the page does not have, and when it was interrupted.
VELMORA_PLATFORM_EXPORT int VelUtilColumnSetHorizontal(int column);

// ---- the axes of the lines of the active page: 0 is x, 1 is y. Reference platform only

/// 0 for an axis with dates, one that there is not, and a page without lines.
VELMORA_PLATFORM_EXPORT int VelUtilAxisCanBeLogarithmic(int axis);
/// 1 for a logarithmic axis, 0 for a linear one, one that there is not, and a page without lines.
VELMORA_PLATFORM_EXPORT int VelUtilAxisIsLogarithmic(int axis);
/// Makes an axis logarithmic (1) or linear (0); it then shows all that the lines have there. Values that are not above
/// 0 are gaps on a logarithmic axis; where no line that is shown has others it stays linear, which is a failure.
/// Data that are loaded have linear axes.
VELMORA_PLATFORM_EXPORT int VelUtilAxisSetLogarithmic(int axis, int logarithmic);
/// How many values of the lines that are shown have no place because an axis is logarithmic.
VELMORA_PLATFORM_EXPORT long VelUtilAxisValuesLeftOut();

// ---- the look of the surface of the active page; a grid that is loaded begins with 1 and all heights. Reference
//      platform only

/// 1 on a page with a surface.
VELMORA_PLATFORM_EXPORT int VelUtilSurfaceIsShown();
/// How many times as high as by themselves the heights are shown, 0.01 to 100. The z axis tells true heights.
VELMORA_PLATFORM_EXPORT int VelUtilSurfaceSetExaggeration(double exaggeration);
/// As it was set; 1 on a page without a surface.
VELMORA_PLATFORM_EXPORT double VelUtilSurfaceGetExaggeration();
/// Has the colours tell all heights apart (0), or those between 2 and 98 % of them (1), which some very high or low
/// ones do not squeeze together. The colour bar marks the ends beyond which there are more.
VELMORA_PLATFORM_EXPORT int VelUtilSurfaceClipColors(int clipped);
/// 1 while the colours tell the middle heights apart, 0 otherwise and on a page without a surface.
VELMORA_PLATFORM_EXPORT int VelUtilSurfaceColorsAreClipped();

// ---- frames and paper

/// Scales and moves all frames of the active page together until they fill the paper inside its
/// hard-clip margins.
VELMORA_PLATFORM_EXPORT void VelUtilFrameFitAllToPaper();
/// Zooms the work view so that the whole paper shows.
VELMORA_PLATFORM_EXPORT void VelUtilWorkViewFitPaper();

// ---- picking

/// Gives the selection of the active page up.
VELMORA_PLATFORM_EXPORT void VelUtilPickDeselectAll();
/// Selects what lies in the rectangle "X1", "Y1", "X2", "Y2" (paper inches from the lower left
/// corner of the paper, corners in any order). "SelectZones", "SelectGeoms" and "SelectText" (0 or
/// 1) say which kinds of object count, "ConsiderStyle" that hidden ones do not.
VELMORA_PLATFORM_EXPORT int VelUtilPickAddAllInRectX(VelArgList* arguments);
/// Selects the object that comes after what is selected, and nothing else: first lines or the surface, then axes,
/// legend and colour bar, then texts, and after the last one the first again; the first one when nothing is selected.
/// Only what shows counts. 0 for an empty page. Reference platform only.
VELMORA_PLATFORM_EXPORT int VelUtilPickNext();
/// The same the other way round. Reference platform only.
VELMORA_PLATFORM_EXPORT int VelUtilPickPrevious();
/// How many objects are selected. Reference platform only.
VELMORA_PLATFORM_EXPORT int VelUtilPickGetCount();
/// What is selected, on one line ("line speed, horizontal axis"; of many the first few and how many more), or "".
/// Valid until the next call. Reference platform only.
VELMORA_PLATFORM_EXPORT const char* VelUtilPickDescription();
/// Turns a position in pixels of the active page's drawing area into paper inches from the lower
/// left corner of the paper. Reference platform only.
VELMORA_PLATFORM_EXPORT void VelUtilPickPositionToPaper(double xPixel, double yPixel, double* xPaper, double* yPaper);

// ---- pictures of the active page. Reference platform only
//
// They are drawn through the off-screen image service of the binding, in parts when one image cannot
// hold them, and are not limited in size by what an image can hold. The engine is busy meanwhile,
// tells the progress and gives the application its turns; each of them can stop it. It then answers
// 0 with an empty last error, and VelUtilWasInterrupted() says 1. One picture at a time; not from
// inside a paint event.

/// What picture to export.
struct VelExportImageOptions {
    int width;       ///< pixels
    int height;      ///< pixels
    int supersample; ///< 1 to 8: drawn that many times larger in each direction, and averaged
    int region;      ///< an ExportRegion_e value
    int strategy;    ///< an ImageRenderingStrategy_e value
    /// How many pixels make an inch of text and line width, noted in the file too. 0: text and lines
    /// belong to the picture, so that a larger one is the same picture enlarged. A current frame of
    /// 1000 pixels width (and 500 or more of height) then looks like a window of that size on a screen of
    /// 96 dots per inch.
    double dotsPerInch;
    /// Not 0: the ground on which the plots stand, white otherwise, is left out, and the file has alpha. It
    /// takes the time of two drawings.
    int transparent = 0;
};

/// Writes a PNG file. It takes its name when it is complete: after a failure or an interruption, or
/// when the process ends meanwhile, an older file of that name is as it was. A symbolic link is
/// followed; a file that replaces another gets its permissions.
VELMORA_PLATFORM_EXPORT int VelUtilExportImage(const char* fileName, const VelExportImageOptions* options);

/// Renders the paper at a resolution, in memory that does not grow with it, for a printer. `takeRow`
/// gets the rows from the top, `width` pixels of red, green and blue; `rgb` is valid during the call.
/// It returns 1 to go on, and 0 to stop, which is an interruption.
VELMORA_PLATFORM_EXPORT int VelUtilRenderPage(double dotsPerInch, int strategy,
                                              int (*takeRow)(int row, int width, int height, const unsigned char* rgb,
                                                             long clientData),
                                              long clientData);

} // extern "C"
