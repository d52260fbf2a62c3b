#include "chosen_toolkit/VisualChoosingContext.h"

namespace velmora::sdk::integration::toolkit {

VisualChoosingContext::VisualChoosingContext(const QGLFormat& format) : QGLContext(format) {}

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

} // namespace velmora::sdk::integration::toolkit
