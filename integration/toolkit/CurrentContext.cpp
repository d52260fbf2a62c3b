#include "integration/toolkit/CurrentContext.h"

#include <QtGlobal>

#if QT_VERSION >= 0x050000
#include <QOpenGLContext>
#else
#include <QGLContext>
#endif

namespace velmora::sdk::integration::toolkit {

#if QT_VERSION >= 0x050000

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

#else

struct CurrentContextKeeper::Kept {
    QGLContext* context;
};

CurrentContextKeeper::CurrentContextKeeper()
{
    if (const QGLContext* const context = QGLContext::currentContext())
        m_kept.reset(new Kept{const_cast<QGLContext*>(context)});
}

CurrentContextKeeper::~CurrentContextKeeper()
{
    if (m_kept)
        m_kept->context->makeCurrent();
    else
        releaseCurrentContext();
}

void releaseCurrentContext()
{
    if (const QGLContext* const context = QGLContext::currentContext())
        const_cast<QGLContext*>(context)->doneCurrent();
}

#endif

} // namespace velmora::sdk::integration::toolkit
