#include "integration/glarea/VisualList.h"

#include "integration/glarea/VisualRanking.h"
#include "integration/toolkit/XDisplay.h"

// After everything that names things as Xlib's macros do.
#include <GL/glx.h>
#include <X11/Xutil.h>
#include <cstdlib>

namespace velmora::sdk::integration {

namespace {

// Asks for one GLX attribute after the other, of one visual after the other. A query that fails
// leaves the answer of the one before it; deliberate: there is no reset between queries and no look
// at their return codes.
class AttributeReader {
public:
    explicit AttributeReader(Display* display) : m_display(display) {}

    void turnTo(XVisualInfo* visual) { m_visual = visual; }

    int operator()(int attribute)
    {
        glXGetConfig(m_display, m_visual, attribute, &m_value);
        return m_value;
    }

private:
    Display* m_display;
    XVisualInfo* m_visual = nullptr;
    int m_value = 0;
};

int caveatRank(int caveat)
{
    if (caveat == GLX_NONE)
        return 0;
    return caveat == GLX_SLOW_VISUAL_EXT ? 2 : 1;
}

// The order of the queries decides what a failed one leaves behind.
void readAttributes(VisualCandidate& candidate, AttributeReader& read)
{
    candidate.level = read(GLX_LEVEL);
    candidate.bufferSize = read(GLX_BUFFER_SIZE);
    candidate.rgba = read(GLX_RGBA) != 0;
    candidate.doubleBuffer = read(GLX_DOUBLEBUFFER) != 0;
    candidate.stereo = read(GLX_STEREO) != 0;
    candidate.redSize = read(GLX_RED_SIZE);
    candidate.greenSize = read(GLX_GREEN_SIZE);
    candidate.blueSize = read(GLX_BLUE_SIZE);
    candidate.alphaSize = read(GLX_ALPHA_SIZE);
    candidate.depthSize = read(GLX_DEPTH_SIZE);
    candidate.stencilSize = read(GLX_STENCIL_SIZE);
    candidate.accumRedSize = read(GLX_ACCUM_RED_SIZE);
    candidate.accumGreenSize = read(GLX_ACCUM_GREEN_SIZE);
    candidate.accumBlueSize = read(GLX_ACCUM_BLUE_SIZE);
    candidate.accumAlphaSize = read(GLX_ACCUM_ALPHA_SIZE);
    candidate.auxBuffers = read(GLX_AUX_BUFFERS);
    candidate.sampleBuffers = read(GLX_SAMPLE_BUFFERS);
    candidate.samples = read(GLX_SAMPLES);
    candidate.caveatRank = caveatRank(read(GLX_VISUAL_CAVEAT_EXT));
}

} // namespace

struct VisualList::Impl {
    Display* display = nullptr;
    std::unique_ptr<XVisualInfo, toolkit::FreeByXlib> visuals;
    int count = 0;
};

VisualList::VisualList() : m_impl(std::make_unique<Impl>())
{
    m_impl->display = toolkit::xDisplay();
    // Without GLX every visual would count as one of no size at all.
    if (!m_impl->display || !glXQueryExtension(m_impl->display, nullptr, nullptr))
        return;
    XVisualInfo wanted = {};
    wanted.c_class = TrueColor;
    m_impl->visuals.reset(XGetVisualInfo(m_impl->display, VisualClassMask, &wanted, &m_impl->count));
}

VisualList::~VisualList() = default;

bool VisualList::isEmpty() const
{
    return m_impl->count == 0;
}

std::vector<VisualCandidate> VisualList::candidates(const VisualRequest& request) const
{
    std::vector<VisualCandidate> candidates(static_cast<std::size_t>(m_impl->count));
    XVisualInfo* visual = m_impl->visuals.get();
    AttributeReader read(m_impl->display);
    for (VisualCandidate& candidate : candidates) {
        candidate.visualId = static_cast<int>(visual->visualid);
        candidate.screen = visual->screen;
        candidate.depth = visual->depth;
        candidate.requestedDepthSize = request.depthSize;
        candidate.requestedSamples = request.samples;
        candidate.requestedAccumSize = request.accumSize;
        read.turnTo(visual);
        readAttributes(candidate, read);
        ++visual;
    }
    return candidates;
}

unsigned long VisualList::best(const VisualRequest& request) const
{
    std::vector<VisualCandidate> ranked = candidates(request);
    X_Screen = toolkit::xScreen();
    std::qsort(ranked.data(), ranked.size(), sizeof(VisualCandidate), CompareVisual);
    return static_cast<unsigned long>(ranked.back().visualId);
}

toolkit::OwnedVisual VisualList::find(unsigned long visualId)
{
    XVisualInfo wanted = {};
    wanted.visualid = visualId;
    int count = 0;
    return toolkit::OwnedVisual(XGetVisualInfo(toolkit::xDisplay(), VisualIDMask, &wanted, &count));
}

unsigned long VisualList::idOf(const void* visualInfo)
{
    return XVisualIDFromVisual(static_cast<const XVisualInfo*>(visualInfo)->visual);
}

} // namespace velmora::sdk::integration
