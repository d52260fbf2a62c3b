#include "engine/page/ExportRequest.h"

namespace velmora::engine {
namespace {

ExportRequest& request()
{
    static ExportRequest current;
    return current;
}

ImageDrawing g_lastDrawing = ImageDrawing::NotBegun;

} // namespace

const ExportRequest& currentExportRequest()
{
    return request();
}

ExportRequestScope::ExportRequestScope(const ExportRequest& wanted) : m_before(request())
{
    request() = wanted;
}

ExportRequestScope::~ExportRequestScope()
{
    request() = m_before;
}

ImageDrawing lastImageDrawing()
{
    return g_lastDrawing;
}

void noteImageDrawing(ImageDrawing drawing)
{
    g_lastDrawing = drawing;
}

} // namespace velmora::engine
