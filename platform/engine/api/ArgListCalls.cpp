#include "engine/api/VelArgList.h"
#include "engine/core/Trace.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

struct VelArgList {
    using Value = std::variant<long, double, std::string, long*, double*>;
    struct Argument {
        std::string name;
        Value value;
    };

    std::vector<Argument> arguments;

    void append(const char* name, Value value)
    {
        velmora::engine::tracePoint("ArgList");
        arguments.push_back(Argument{name ? name : "", std::move(value)});
    }

    const Value* find(const char* name) const
    {
        const auto found = std::find_if(arguments.rbegin(), arguments.rend(),
                                        [name](const Argument& argument) { return argument.name == name; });
        return found == arguments.rend() ? nullptr : &found->value;
    }

    /// Copies the value of this name and exactly this type.
    template <typename T>
    bool get(const char* name, T& value) const
    {
        const Value* found = find(name);
        const T* typed = found ? std::get_if<T>(found) : nullptr;
        if (typed)
            value = *typed;
        return typed != nullptr;
    }
};

VelArgList* VelArgListCreate()
{
    return std::make_unique<VelArgList>().release(); // the caller owns it, up to VelArgListDestroy
}

void VelArgListDestroy(VelArgList* list)
{
    const std::unique_ptr<VelArgList> owned(list);
}

void VelArgListClear(VelArgList* list)
{
    list->arguments.clear();
}

void VelArgListAppendInt(VelArgList* list, const char* name, int value)
{
    list->append(name, static_cast<long>(value));
}

void VelArgListAppendDouble(VelArgList* list, const char* name, double value)
{
    list->append(name, value);
}

void VelArgListAppendString(VelArgList* list, const char* name, const char* value)
{
    list->append(name, std::string(value ? value : ""));
}

void VelArgListAppendArbParam(VelArgList* list, const char* name, long value)
{
    list->append(name, value);
}

void VelArgListAppendArbParamPtr(VelArgList* list, const char* name, long* value)
{
    list->append(name, value);
}

void VelArgListAppendDoublePtr(VelArgList* list, const char* name, double* value)
{
    list->append(name, value);
}

int VelArgListCount(const VelArgList* list)
{
    return static_cast<int>(list->arguments.size());
}

const char* VelArgListNameAt(const VelArgList* list, int position)
{
    if (position < 0 || position >= VelArgListCount(list))
        return nullptr;
    return list->arguments[static_cast<std::size_t>(position)].name.c_str();
}

int VelArgListGetLong(const VelArgList* list, const char* name, long* value)
{
    return list->get(name, *value);
}

int VelArgListGetDouble(const VelArgList* list, const char* name, double* value)
{
    long whole = 0;
    if (!list->get(name, whole))
        return list->get(name, *value);
    *value = static_cast<double>(whole);
    return 1;
}

int VelArgListGetString(const VelArgList* list, const char* name, const char** value)
{
    const VelArgList::Value* found = list->find(name);
    const std::string* text = found ? std::get_if<std::string>(found) : nullptr;
    if (text)
        *value = text->c_str();
    return text != nullptr;
}

int VelArgListGetArbParamPtr(const VelArgList* list, const char* name, long** value)
{
    return list->get(name, *value);
}

int VelArgListGetDoublePtr(const VelArgList* list, const char* name, double** value)
{
    return list->get(name, *value);
}
