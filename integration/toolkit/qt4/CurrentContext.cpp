#include "integration/toolkit/CurrentContext.h"

#include <QGLContext>

namespace velmora::sdk::integration::toolkit {

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

void (*currentFunction(const char* name))()
{
    return reinterpret_cast<void (*)()>(QGLContext::currentContext()->getProcAddress(QLatin1String(name)));
}

} // namespace velmora::sdk::integration::toolkit
