#include "integration/toolkit/CurrentContext.h"

#include <QOpenGLContext>

namespace velmora::sdk::integration::toolkit {

// Below QGLContext, so that contexts of the host's newer widgets are seen as well.

struct CurrentContextKeeper::Kept {
    QOpenGLContext* context;
    QSurface* surface;
};

CurrentContextKeeper::CurrentContextKeeper()
{
    if (QOpenGLContext* const context = QOpenGLContext::currentContext())
        m_kept = std::make_unique<Kept>(Kept{context, context->surface()});
}

CurrentContextKeeper::~CurrentContextKeeper()
{
    if (m_kept)
        m_kept->context->makeCurrent(m_kept->surface);
    else
        releaseCurrentContext();
}

void releaseCurrentContext()
{
    if (QOpenGLContext* const context = QOpenGLContext::currentContext())
        context->doneCurrent();
}

void (*currentFunction(const char* name))()
{
    return QOpenGLContext::currentContext()->getProcAddress(name);
}

} // namespace velmora::sdk::integration::toolkit
