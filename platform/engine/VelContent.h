#pragma once

/// \file
/// What a page shows, for renderers of any origin. A content draws itself into whatever OpenGL context is
/// current, and the engine does the rest with it: shows it in a drawing area, interrupts it without losing what the
/// person did, exports and prints it, in parts where one image cannot hold it, selects in it and tells values of it.
/// The engine's own plots are contents like any other.
///
/// All of it belongs to the GUI thread. Reference platform only.

#include "engine/VelExport.h"

#include <exception>
#include <memory>
#include <string>

namespace velmora {
namespace content {

/// Of what this header describes. It grows when a content that was compiled before would no longer do.
constexpr int InterfaceVersion = 1;

/// What long work asks between two portions of it, so that the application stays alive meanwhile.
///
/// Portions are small (a millisecond or less) and asking is cheap; the implementation decides when the application
/// gets its turn. During that turn anything may be called, so the work holds what it works on by shared ownership.
/// Work that draws finds its OpenGL context, framebuffer, viewport, matrices and other state as they were.
class Checkpoint {
public:
    /// `fraction` of the work is done, 0 to 1. False: stop now, and put back what was changed on the way. The
    /// OpenGL context may be gone then; no context is current in that case, and OpenGL calls do nothing.
    virtual bool goOn(double fraction) = 0;

protected:
    ~Checkpoint() = default;
};

/// For work that is short enough to be done, or must be done, in one go.
class NoCheckpoint final : public Checkpoint {
public:
    bool goOn(double) override { return true; }
};

/// How much of a content a drawing shows.
enum class Detail {
    Full,
    Coarse ///< all that there is, as exactly as 20 milliseconds allow
};

/// Where and how large a content is drawn. The target is the framebuffer that is bound; the viewport is the whole of
/// it. The frame, which the content fills, may be larger than the target and lie partly outside it, as it does when a
/// picture is drawn in tiles: pixels of the target are those of the whole picture, seen through a window.
struct Drawing {
    int targetWidth = 0; ///< pixels
    int targetHeight = 0;
    double frameX = 0; ///< target pixels from the left to the frame
    double frameY = 0; ///< target pixels from the bottom to the frame
    double frameWidth = 0;
    double frameHeight = 0;
    double pixelsPerPoint = 1; ///< 1 point is 1/72 inch of paper: text and line widths. Dots per inch are 72 times that
    double leastText = 0;      ///< pixels that no text is lower than
    Detail detail = Detail::Full;
    int samples = 0; ///< for each pixel of the target; 0 without multisampling

    /// The number of the context when it is that of a drawing area, so that objects may be kept in it for the next
    /// drawing, until Content::leaveContext(). 0 for a context that may be gone after this drawing: keep nothing.
    unsigned long context = 0;
    /// The context is one of libGL, whose functions the program has linked: GLX or EGL. False for the software
    /// library's own, which only findFunction() reaches.
    bool isOfLibGL = true;
    using Function = void (*)();
    /// An OpenGL function of the library that the current context is of ("glClear"); null for one that it lacks.
    Function (*findFunction)(const char* name) = nullptr;
};

/// Which kinds of object a pick takes.
struct PickFilter {
    bool zones = true;      ///< lines and surfaces
    bool geometries = true; ///< axes, colour bar, legend frame
    bool text = true;
    bool considerStyle = true; ///< leave out what is not shown
};

/// A value that a picture shows, and where: fractions of the frame.
struct ShownValue {
    double x = 0;
    double y = 0;
    std::string text; ///< for a person
};

/// The box around all data, in their own units: x, y, z.
struct Extent {
    double least[3] = {0, 0, 0};
    double greatest[3] = {0, 0, 0};
};

/// From where all is seen without perspective; Above is a map with the north up.
enum class Side { Above, South, East };

/// What a page shows, and from where. Only draw() and description() must be there; what else a content can do, it
/// overrides. Fractions are of the frame, from its lower left corner. The engine holds the content while it draws.
class VELMORA_PLATFORM_EXPORT Content {
public:
    Content() = default;
    Content(const Content&) = delete;
    Content& operator=(const Content&) = delete;
    virtual ~Content();

    // ---- drawing

    /// Draws over the frame's ground, which is cleared, with the depth buffer; a content draws no ground of its own
    /// when its pictures are to be exported without one. Leaves OpenGL's state as it was (StateGuard helps) and
    /// keeps to the target's scissor box where one is set. The same view gives the same picture, whole or in tiles,
    /// in a window or not. False when `checkpoint` said to stop. May throw; what() becomes the last error.
    virtual bool draw(const Drawing& drawing, Checkpoint& checkpoint) = 0;
    /// Whether it draws itself with Detail::Coarse as fast as that says. If not, a coarse drawing is told to stop
    /// after a moment, and what there is of it then shows until the full picture takes its place.
    virtual bool drawsCoarsely() const;
    /// Gives back what it keeps in the context of that number, which is current. When `isCurrent` is false it is gone
    /// already, and the content just forgets; no context is current then, and OpenGL calls do nothing. It may come
    /// while the content draws, within a checkpoint; that drawing is then told to stop.
    virtual void leaveContext(unsigned long context, bool isCurrent);

    // ---- what it is

    /// One line for a person: what is shown ("1200 particles").
    virtual std::string description() const = 0;
    /// What a person should know about how it was read, one note a line.
    virtual std::string notes() const;
    /// What the data are, in lines of a name and a value with a tab between them. By itself tells extent().
    virtual std::string details() const;
    /// False when the data have none.
    virtual bool extent(Extent& found) const;

    // ---- the view; distances are fractions of the frame

    virtual bool canRotate() const;
    virtual void rotate(double aboutVertical, double tilt); ///< degrees
    /// Shows all from that side. Turning it afterwards gives a perspective back. False when it cannot.
    virtual bool lookFrom(Side side);
    virtual void translate(double dx, double dy);
    /// Zooms by a factor (above 1: nearer) about a point.
    virtual void zoom(double factor, double x, double y);
    /// Shows what lies in a rectangle (x1 < x2, y1 < y2) as large as the frame. By itself zooms and translates.
    virtual void zoomTo(double x1, double y1, double x2, double y2);
    /// Zooms the axis that is at a point alone; false where there is none that can be.
    virtual bool zoomAxis(double factor, double x, double y);
    /// Shows all data from the direction that they were first seen from.
    virtual void fit();
    /// Shows all data from the direction that they are seen from now. By itself the same as fit().
    virtual void showAll();
    /// The view as a text that setViewState() takes; two views are the same when their texts are. "" for none.
    virtual std::string viewState() const;
    /// False, and nothing has changed, for a text that is no view of this content.
    virtual bool setViewState(const std::string& state);
    /// Shows what another content shows, as far as its own data have it. Asks `checkpoint` to go on, and throws
    /// Interrupted when that says no. By itself takes the other's viewState().
    virtual void takeViewOf(const Content& other, Checkpoint& checkpoint);

    // ---- what is where

    /// The value that the picture shows at a place, or near it; false without one.
    virtual bool valueAt(double x, double y, ShownValue& found) const;
    /// Adds what lies in the rectangle (x1 <= x2, y1 <= y2) to the selection; how many objects that were.
    virtual int pick(double x1, double y1, double x2, double y2, const PickFilter& filter);
    virtual void deselectAll();
    /// Selects the object after (or before) what is selected and nothing else, of those that show; the first (or the
    /// last) when nothing is selected. False, and nothing is selected any more, where no other one follows.
    virtual bool selectNeighbour(bool after);
    virtual int selectedCount() const;
    /// The names of what is selected, on one line; of many the first few and a number.
    virtual std::string selectionDescription() const;
};

/// Shows the content on the active page, in a frame that fills the paper, in place of what the page showed. Throws
/// velmora::ExceptionBase while the engine does not run, and for null.
VELMORA_PLATFORM_EXPORT void show(std::shared_ptr<Content> content);
/// The content that the active page shows; null for an empty page.
VELMORA_PLATFORM_EXPORT std::shared_ptr<Content> shown();
/// The content looks different from now on, by itself and not by the engine: pages that show it are drawn anew at the
/// engine's next turn. Nothing for a content that no page shows.
VELMORA_PLATFORM_EXPORT void changed(const Content& content);

/// Reading was told to stop.
class VELMORA_PLATFORM_EXPORT Interrupted : public std::exception {};

/// Makes contents from files.
class VELMORA_PLATFORM_EXPORT Reader {
public:
    virtual ~Reader();
    /// Whether the file is one of this reader's, by its name and its first bytes (up to 4096).
    virtual bool recognises(const std::string& fileName, const std::string& beginning) const = 0;
    /// Asks `checkpoint` to go on, and throws Interrupted when that says no. Throws an exception whose what() tells
    /// the file, what is wrong with it and what helps.
    virtual std::shared_ptr<Content> read(const std::string& fileName, Checkpoint& checkpoint) = 0;
};

/// From now on VelUtilDataLoad() asks this reader too: before those that were added earlier, and before the engine's
/// own, which takes any file. It stays until the process ends.
VELMORA_PLATFORM_EXPORT void addReader(std::unique_ptr<Reader> reader);

/// What a module (a shared object) defines as `extern "C" const velmora::content::Module velmoraContentModule`.
struct Module {
    int interfaceVersion; ///< InterfaceVersion
    std::unique_ptr<Reader> (*makeReader)();
};

/// Loads a module and adds its reader. The module stays until the process ends. Throws velmora::ExceptionBase, with
/// the file and what is wrong with it.
VELMORA_PLATFORM_EXPORT void loadModule(const std::string& fileName);

/// Keeps the state of the current OpenGL context for as long as it lives and puts it back, so that a drawing leaves
/// nothing behind, also when it ends early: attributes, matrices, program, vertex array and buffer bindings. From
/// construction on the state is plain: no textures, lighting, culling or tests, vertex arrays off, no buffer or
/// program bound. The viewport, the framebuffer and the scissor stay. Objects that the drawing makes are its own to
/// delete. For a compatibility context, as drawing areas and images have.
class VELMORA_PLATFORM_EXPORT StateGuard {
public:
    StateGuard();
    ~StateGuard();
    StateGuard(const StateGuard&) = delete;
    StateGuard& operator=(const StateGuard&) = delete;

private:
    struct Kept;
    std::unique_ptr<Kept> m_kept;
};

} // namespace content
} // namespace velmora
