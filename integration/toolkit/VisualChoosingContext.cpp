#include "integration/toolkit/VisualChoosingContext.h"

#include "integration/toolkit/XDisplay.h"

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>
#include <initializer_list>
#include <vector>

namespace velmora::sdk::integration::toolkit {

VisualChoosingContext::VisualChoosingContext(const QGLFormat& format) : QGLContext(format) {}

#if QT_VERSION >= 0x050000

namespace {

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

// A size that was not set means any: 1 or more.
int atLeast(int size)
{
    return qMax(size, 1);
}

void want(std::vector<int>& attributes, std::initializer_list<int> names, int size)
{
    for (const int name : names)
        attributes.insert(attributes.end(), {name, size});
}

// Samples that were not set mean 4.
constexpr int OrdinarySamples = 4;

std::vector<int> attributesFor(const QGLFormat& format)
{
    std::vector<int> attributes = {GLX_RGBA};
    want(attributes, {GLX_RED_SIZE}, atLeast(format.redBufferSize()));
    want(attributes, {GLX_GREEN_SIZE}, atLeast(format.greenBufferSize()));
    want(attributes, {GLX_BLUE_SIZE}, atLeast(format.blueBufferSize()));
    if (format.alpha())
        want(attributes, {GLX_ALPHA_SIZE}, atLeast(format.alphaBufferSize()));
    if (format.doubleBuffer())
        attributes.push_back(GLX_DOUBLEBUFFER);
    if (format.stereo())
        attributes.push_back(GLX_STEREO);
    if (format.depth())
        want(attributes, {GLX_DEPTH_SIZE}, atLeast(format.depthBufferSize()));
    if (format.stencil())
        want(attributes, {GLX_STENCIL_SIZE}, atLeast(format.stencilBufferSize()));
    if (format.accum())
        want(attributes, {GLX_ACCUM_RED_SIZE, GLX_ACCUM_GREEN_SIZE, GLX_ACCUM_BLUE_SIZE},
             atLeast(format.accumBufferSize()));
    if (format.sampleBuffers()) {
        want(attributes, {GLX_SAMPLE_BUFFERS}, 1);
        want(attributes, {GLX_SAMPLES}, format.samples() == -1 ? OrdinarySamples : format.samples());
    }
    attributes.push_back(None);
    return attributes;
}

// What is given up, one after the other, until there is a visual: what matters least first.
struct Wish {
    bool (QGLFormat::*isWanted)() const;
    void (QGLFormat::*setWanted)(bool);
};
const Wish Wishes[] = {
    {&QGLFormat::sampleBuffers, &QGLFormat::setSampleBuffers},
    {&QGLFormat::stereo, &QGLFormat::setStereo},
    {&QGLFormat::accum, &QGLFormat::setAccum},
    {&QGLFormat::stencil, &QGLFormat::setStencil},
    {&QGLFormat::alpha, &QGLFormat::setAlpha},
    {&QGLFormat::depth, &QGLFormat::setDepth},
    {&QGLFormat::doubleBuffer, &QGLFormat::setDoubleBuffer},
};

} // namespace

void* VisualChoosingContext::chooseVisual()
{
    if (!xDisplay())
        return nullptr;
    QGLFormat wanted = format();
    XVisualInfo* visual = glXChooseVisual(xDisplay(), xScreen(), attributesFor(wanted).data());
    for (const Wish& wish : Wishes) {
        if (visual)
            break;
        if (!(wanted.*wish.isWanted)())
            continue;
        (wanted.*wish.setWanted)(false);
        visual = glXChooseVisual(xDisplay(), xScreen(), attributesFor(wanted).data());
    }
    return visual;
}

bool VisualChoosingContext::toolkitMustChoose() const
{
    return false;
}

bool VisualChoosingContext::chooseContext(const QGLContext* shareContext)
{
    const OwnedVisual chosen(chooseVisual());
    if (chosen)
        setFormat(formatLike(static_cast<XVisualInfo*>(chosen.get()), format()));
    return QGLContext::chooseContext(shareContext);
}

#else

void* VisualChoosingContext::chooseVisual()
{
    return QGLContext::chooseVisual();
}

bool VisualChoosingContext::toolkitMustChoose() const
{
    return m_toolkitMustChoose;
}

// Without a visual Qt 4 makes no context; asked once more, its own choice stands.
bool VisualChoosingContext::chooseContext(const QGLContext* shareContext)
{
    if (QGLContext::chooseContext(shareContext))
        return true;
    m_toolkitMustChoose = true;
    return QGLContext::chooseContext(shareContext);
}

#endif

} // namespace velmora::sdk::integration::toolkit
