#include "integration/toolkit/VisualSizes.h"

#include "integration/toolkit/XDisplay.h"

// After everything that names things as Xlib's macros do.
#include <GL/glx.h>
#include <initializer_list>
#include <utility>
#include <vector>

namespace velmora::sdk::integration::toolkit {

namespace {

int configOf(XVisualInfo* visual, int attribute)
{
    int value = 0;
    glXGetConfig(xDisplay(), visual, attribute, &value);
    return value;
}

void want(std::vector<int>& attributes, std::initializer_list<int> names, int size)
{
    for (const int name : names)
        attributes.insert(attributes.end(), {name, size});
}

std::vector<int> attributesFor(const VisualSizes& wanted)
{
    std::vector<int> attributes = {GLX_RGBA};
    want(attributes, {GLX_RED_SIZE}, wanted.red);
    want(attributes, {GLX_GREEN_SIZE}, wanted.green);
    want(attributes, {GLX_BLUE_SIZE}, wanted.blue);
    if (wanted.alpha)
        want(attributes, {GLX_ALPHA_SIZE}, wanted.alpha);
    if (wanted.doubleBuffer)
        attributes.push_back(GLX_DOUBLEBUFFER);
    if (wanted.stereo)
        attributes.push_back(GLX_STEREO);
    if (wanted.depth)
        want(attributes, {GLX_DEPTH_SIZE}, wanted.depth);
    if (wanted.stencil)
        want(attributes, {GLX_STENCIL_SIZE}, wanted.stencil);
    if (wanted.accum)
        want(attributes, {GLX_ACCUM_RED_SIZE, GLX_ACCUM_GREEN_SIZE, GLX_ACCUM_BLUE_SIZE}, wanted.accum);
    if (wanted.samples) {
        want(attributes, {GLX_SAMPLE_BUFFERS}, 1);
        want(attributes, {GLX_SAMPLES}, wanted.samples);
    }
    attributes.push_back(None);
    return attributes;
}

// Gives up what matters least of what is still wanted; false when nothing is left but the colours.
bool giveUpOne(VisualSizes& wanted)
{
    return std::exchange(wanted.samples, 0) || std::exchange(wanted.stereo, false) || std::exchange(wanted.accum, 0) ||
           std::exchange(wanted.stencil, 0) || std::exchange(wanted.alpha, 0) || std::exchange(wanted.depth, 0) ||
           std::exchange(wanted.doubleBuffer, false);
}

} // namespace

OwnedVisual chooseVisualWith(const VisualSizes& wanted)
{
    if (!xDisplay())
        return nullptr;
    VisualSizes left = wanted;
    XVisualInfo* visual = nullptr;
    do
        visual = glXChooseVisual(xDisplay(), xScreen(), attributesFor(left).data());
    while (!visual && giveUpOne(left));
    return OwnedVisual(visual);
}

VisualSizes sizesOfVisual(void* visualInfo)
{
    auto* const visual = static_cast<XVisualInfo*>(visualInfo);
    VisualSizes sizes;
    sizes.doubleBuffer = configOf(visual, GLX_DOUBLEBUFFER) != 0;
    sizes.stereo = configOf(visual, GLX_STEREO) != 0;
    sizes.red = configOf(visual, GLX_RED_SIZE);
    sizes.green = configOf(visual, GLX_GREEN_SIZE);
    sizes.blue = configOf(visual, GLX_BLUE_SIZE);
    sizes.alpha = configOf(visual, GLX_ALPHA_SIZE);
    sizes.depth = configOf(visual, GLX_DEPTH_SIZE);
    sizes.stencil = configOf(visual, GLX_STENCIL_SIZE);
    sizes.accum = configOf(visual, GLX_ACCUM_RED_SIZE);
    sizes.samples = configOf(visual, GLX_SAMPLE_BUFFERS) > 0 ? configOf(visual, GLX_SAMPLES) : 0;
    return sizes;
}

} // namespace velmora::sdk::integration::toolkit
