#include "toolbox/ArgList.h"

#include "engine/api/VelArgList.h"

namespace velmora::toolbox {

ArgList::ArgList() : m_list(VelArgListCreate()) {}

ArgList::~ArgList()
{
    VelArgListDestroy(m_list);
}

void ArgList::appendInt(const char* name, int value)
{
    VelArgListAppendInt(m_list, name, value);
}

void ArgList::appendDouble(const char* name, double value)
{
    VelArgListAppendDouble(m_list, name, value);
}

void ArgList::appendString(const char* name, const char* value)
{
    VelArgListAppendString(m_list, name, value);
}

void ArgList::appendArbParam(const char* name, long value)
{
    VelArgListAppendArbParam(m_list, name, value);
}

void ArgList::appendArbParamPtr(const char* name, long* value)
{
    VelArgListAppendArbParamPtr(m_list, name, value);
}

void ArgList::appendDoublePtr(const char* name, double* value)
{
    VelArgListAppendDoublePtr(m_list, name, value);
}

void ArgList::clear()
{
    VelArgListClear(m_list);
}

} // namespace velmora::toolbox
