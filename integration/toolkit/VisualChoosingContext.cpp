#include "integration/toolkit/VisualChoosingContext.h"

#include "integration/toolkit/XDisplay.h"

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>
#include <memory>
#include <vector>

namespace velmora::sdk::integration::toolkit {

VisualChoosingContext::VisualChoosingContext(const QGLFormat& format) : QGLContext(format) {}

#if QT_VERSION >= 0x050000

namespace {

struct FreeByXlib {
    void operator()(XVisualInfo* visual) const { XFree(visual); }
};

int configOf(XVisualInfo* visual, int attribute)
{
    int value = 0;
    glXGetConfig(xDisplay(), visual, attribute, &value);
    return value;
}

QGLFormat formatLike(XVisualInfo* visual, QGLFormat format)
{
    format.setDoubleBuffer(configOf(visual, GLX_DOUBLEBUFFER) != 0);
    format.setRedBufferSize(configOf(visual, GLX_RED_SIZE));
    format.setGreenBufferSize(configOf(visual, GLX_GREEN_SIZE));
    format.setBlueBufferSize(configOf(visual, GLX_BLUE_SIZE));
    format.setAlphaBufferSize(configOf(visual, GLX_ALPHA_SIZE));
    format.setAlpha(configOf(visual, GLX_ALPHA_SIZE) > 0);
    format.setDepthBufferSize(configOf(visual, GLX_DEPTH_SIZE));
    format.setStencilBufferSize(configOf(visual, GLX_STENCIL_SIZE));
    format.setStencil(configOf(visual, GLX_STENCIL_SIZE) > 0);
    format.setSamples(configOf(visual, GLX_SAMPLES));
    format.setSampleBuffers(configOf(visual, GLX_SAMPLE_BUFFERS) > 0);
    return format;
}

std::vector<int> attributesFor(const QGLFormat& format)
{
    std::vector<int> attributes = {GLX_RGBA, GLX_RED_SIZE, 1, GLX_GREEN_SIZE, 1, GLX_BLUE_SIZE, 1};
    if (format.doubleBuffer())
        attributes.push_back(GLX_DOUBLEBUFFER);
    if (format.depth())
        attributes.insert(attributes.end(), {GLX_DEPTH_SIZE, qMax(format.depthBufferSize(), 1)});
    if (format.accum())
        attributes.insert(attributes.end(), {GLX_ACCUM_RED_SIZE, qMax(format.accumBufferSize(), 1)});
    if (format.sampleBuffers() && format.samples() != 0)
        attributes.insert(attributes.end(), {GLX_SAMPLE_BUFFERS, 1, GLX_SAMPLES, qMax(format.samples(), 1)});
    attributes.push_back(None);
    return attributes;
}

} // namespace

void* VisualChoosingContext::chooseVisual()
{
    if (!xDisplay())
        return nullptr;
    QGLFormat wanted = format();
    XVisualInfo* visual = glXChooseVisual(xDisplay(), xScreen(), attributesFor(wanted).data());
    if (!visual && wanted.sampleBuffers()) {
        wanted.setSampleBuffers(false);
        visual = glXChooseVisual(xDisplay(), xScreen(), attributesFor(wanted).data());
    }
    return visual;
}

bool VisualChoosingContext::chooseContext(const QGLContext* shareContext)
{
    const std::unique_ptr<XVisualInfo, FreeByXlib> chosen(static_cast<XVisualInfo*>(chooseVisual()));
    if (chosen)
        setFormat(formatLike(chosen.get(), format()));
    return QGLContext::chooseContext(shareContext);
}

#else

void* VisualChoosingContext::chooseVisual()
{
    return QGLContext::chooseVisual();
}

#endif

} // namespace velmora::sdk::integration::toolkit
