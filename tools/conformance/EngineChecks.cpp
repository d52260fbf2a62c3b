#include "EngineChecks.h"

#include "OpenGL.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <GL/glx.h>
#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <set>

namespace conformance {

using namespace velmora::sdk::integration;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Width = 900;
constexpr int Height = 600;
constexpr int MostInterruptions = 40;
constexpr std::chrono::seconds TimeForInterruptions{2};

template <typename Function>
Function loaded(const char* library, const char* name)
{
    void* const handle = dlopen(library, RTLD_LAZY | RTLD_NOLOAD);
    return handle ? reinterpret_cast<Function>(dlsym(handle, name)) : nullptr;
}

void (*fromLibGL(const char* name))()
{
    return glXGetProcAddress(reinterpret_cast<const GLubyte*>(name));
}

/// For the context that is current.
FindFunction currentFinder()
{
    if (glXGetCurrentContext())
        return fromLibGL;
    const auto currentEgl = loaded<void* (*)()>("libEGL.so.1", "eglGetCurrentContext");
    return currentEgl && currentEgl() ? loaded<FindFunction>("libEGL.so.1", "eglGetProcAddress")
                                      : loaded<FindFunction>("libOSMesa.so.8", "OSMesaGetProcAddress");
}

/// Stands in for the application: counts its turns, and stops the engine in one of them.
class Application {
public:
    Application() { VelEngProcessWhileBusyRegisterCallback(turn, reinterpret_cast<long>(this)); }
    ~Application() { VelEngProcessWhileBusyRegisterCallback(nullptr, 0); }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    void begin(long stopAtTurn)
    {
        turns = turnsAfterStop = 0;
        longest = Clock::duration(0);
        m_stopAt = stopAtTurn;
        m_slice = Clock::now();
    }
    void end() { longest = std::max(longest, Clock::now() - m_slice); }

    long turns = 0;
    long turnsAfterStop = 0;
    Clock::duration longest{0};

private:
    static int turn(long self) { return reinterpret_cast<Application*>(self)->answer(); }

    int answer()
    {
        end();
        ++turns;
        turnsAfterStop += m_stopAt > 0 && turns > m_stopAt ? 1 : 0;
        m_slice = Clock::now();
        return m_stopAt > 0 && turns >= m_stopAt ? 1 : 0;
    }

    long m_stopAt = 0;
    Clock::time_point m_slice = Clock::now();
};

/// An image of the binding's, and what it shows.
class Image {
public:
    explicit Image(ImageRenderingStrategy_e strategy) : m_image(m_service.imageCreate(Width, Height, strategy)) {}
    ~Image() { m_service.imageDestroy(m_image); }
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    bool render() { return m_image->render(ExportRegion_CurrentFrame); }
    State state()
    {
        m_image->getGLContext().setCurrentGL();
        const OpenGL gl(currentFinder());
        return gl.isComplete() ? stateOf(gl) : State();
    }
    std::vector<unsigned char> rows()
    {
        std::vector<unsigned char> all;
        std::vector<unsigned char> row(std::size_t{3} * Width);
        for (int y = 0; y < Height; ++y) {
            m_service.imageGetRGBRow(m_image, y, row.data(), row.data() + Width, row.data() + 2 * Width);
            all.insert(all.end(), row.begin(), row.end());
        }
        return all;
    }

private:
    services::OffscreenImageService m_service;
    OffscreenImageInterface* m_image;
};

void checkInterruptions(Image& image, Application& application, long turns, const char* where, Report& report)
{
    std::set<std::string> problems;
    long stops = 0;
    const Clock::time_point begun = Clock::now();
    for (long stopAt = 1; stopAt <= turns && Clock::now() - begun < TimeForInterruptions;
         stopAt += std::max(1L, turns / MostInterruptions)) {
        const State before = image.state();
        application.begin(stopAt);
        const bool isDrawn = image.render();
        if (application.turns < stopAt)
            break; // it was faster this time
        ++stops;
        if (isDrawn)
            problems.insert("a drawing that was stopped says that it is done");
        if (application.turnsAfterStop > 0)
            problems.insert("it goes on after it was told to stop");
        const std::string differs = difference(before, image.state());
        if (!differs.empty())
            problems.insert(differs);
    }
    if (stops == 0)
        report.skip(where, "interruption", "it is drawn without a turn of the application; give larger data");
    else
        report.add(where, "interruption", problems.empty(),
                   problems.empty() ? "in " + std::to_string(stops) + " of its turns" : *problems.begin());
}

void checkImage(ImageRenderingStrategy_e strategy, const char* where, double longestSlice, Report& report)
{
    Application application;
    Image image(strategy);
    if (!image.render())
        return report.skip(where, "all", "the engine draws no such image");
    const std::vector<unsigned char> picture = image.rows();
    const State before = image.state();
    application.begin(0);
    const bool isDrawn = image.render();
    application.end();
    const bool shows = isDrawn && std::any_of(picture.begin(), picture.end(),
                                              [&picture](unsigned char part) { return part != picture.front(); });
    report.add(where, "a picture", shows, shows ? "drawn" : "nothing is drawn");
    const std::string differs = difference(before, image.state());
    report.add(where, "no state left", differs.empty(), differs.empty() ? "all values and objects as before" : differs);
    const double longest = std::chrono::duration<double, std::milli>(application.longest).count();
    report.add(where, "slices", longest <= longestSlice,
               decimal(longest, 1) + " ms without a turn (at most " + decimal(longestSlice, 0) + "), " +
                   std::to_string(application.turns) + " turns");
    checkInterruptions(image, application, application.turns, where, report);
    application.begin(0);
    image.render();
    report.add(where, "same picture again", image.rows() == picture, "after the interruptions");
}

} // namespace

void checkEngine(ImageRenderingStrategy_e strategy, const char* where, double longestSlice, Report& report)
{
    try {
        checkImage(strategy, where, longestSlice, report);
    } catch (const velmora::ExceptionBase& error) {
        report.skip(where, "all", std::string("there is no image: ") + error.what());
    }
}

} // namespace conformance
