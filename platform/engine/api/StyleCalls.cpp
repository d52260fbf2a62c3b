#include "engine/api/VelStyle.h"

#include "engine/api/VelArgList.h"
#include "engine/core/Trace.h"
#include "engine/style/StyleCodes.h"
#include "engine/style/StylePath.h"
#include "engine/style/StyleTree.h"
#include "engine/style/StyleWords.h"

#include <array>
#include <charconv>

using namespace velmora::engine;
using namespace velmora::engine::style;

namespace {

// ---- reading

/// The value of the path that the list names, or null with the reason in `code`.
const Value* findForReading(const VelArgList* arguments, int& code)
{
    std::string path;
    code = pathOf(arguments, path);
    if (code != StyleCode_Ok)
        return nullptr;
    traceCallOf([&] { return "styleGet " + path; });
    const Value* value = tree().find(path);
    if (!value)
        code = StyleCode_UnknownPath;
    else if (Trace::current() && Trace::current()->styleReadFails(path))
        code = StyleCode_ReadFailed;
    return code == StyleCode_Ok ? value : nullptr;
}

template <typename T>
int getTyped(const VelArgList* arguments, T* value)
{
    int code = StyleCode_Ok;
    const Value* found = findForReading(arguments, code);
    if (!found)
        return code;
    const T* typed = std::get_if<T>(found);
    if (!typed)
        return StyleCode_WrongType;
    *value = *typed;
    return StyleCode_Ok;
}

/// Copies a value to where the list wants it.
struct Deliver {
    const VelArgList* arguments;

    int operator()(bool value) const { return (*this)(static_cast<long>(value)); }
    int operator()(long value) const { return to(VelArgListGetArbParamPtr, "IValue", value); }
    int operator()(double value) const { return to(VelArgListGetDoublePtr, "DValue", value); }
    int operator()(const std::string&) const { return StyleCode_WrongType; }

    template <typename T>
    int to(int (*getTarget)(const VelArgList*, const char*, T**), const char* name, T value) const
    {
        T* target = nullptr;
        if (!getTarget(arguments, name, &target) || !target)
            return StyleCode_MissingValue;
        *target = value;
        return StyleCode_Ok;
    }
};

// ---- writing

std::string describe(double value)
{
    constexpr int Digits = 10;
    std::array<char, 40> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, Digits).ptr;
    return " DValue=" + std::string(text.data(), end);
}

/// What a list carries as its value, for the log: " IValue=5 DValue=5".
std::string describe(const VelArgList* arguments)
{
    std::string text;
    long whole = 0;
    double real = 0;
    const char* words = nullptr;
    if (VelArgListGetLong(arguments, "IValue", &whole))
        text += " IValue=" + std::to_string(whole);
    if (VelArgListGetDouble(arguments, "DValue", &real))
        text += describe(real);
    if (VelArgListGetString(arguments, "SValue", &words))
        text += std::string(" SValue=") + words;
    return text;
}

/// The path of a write, which is noted in the log; a StyleCode_e.
int pathForWriting(const VelArgList* arguments, const std::string& described, std::string& path)
{
    int code = pathOf(arguments, path);
    if (code != StyleCode_Ok)
        return code;
    traceCallOf([&] { return "styleSet " + path + described; });
    code = checkAssignment(arguments);
    return code == StyleCode_Ok && Trace::current() ? Trace::current()->styleWriteCode(path) : code;
}

int setTyped(const VelArgList* arguments, const Value& value, const std::string& described)
{
    std::string path;
    const int code = pathForWriting(arguments, described, path);
    return code == StyleCode_Ok ? tree().write(path, value) : code;
}

/// Takes a value of the type that is there now from the list; false when the list has none.
struct Take {
    const VelArgList* arguments;
    Value& value;

    bool operator()(bool) const
    {
        const bool found = (*this)(0L);
        if (found)
            value = std::get<long>(value) != 0;
        return found;
    }
    bool operator()(long whole) const { return keep(VelArgListGetLong(arguments, "IValue", &whole), whole); }
    bool operator()(double real) const { return keep(VelArgListGetDouble(arguments, "DValue", &real), real); }
    bool operator()(const std::string&) const
    {
        const char* words = nullptr;
        const int found = VelArgListGetString(arguments, "SValue", &words);
        return keep(found, std::string(found ? words : ""));
    }

    template <typename T>
    bool keep(int found, const T& taken) const
    {
        if (found)
            value = taken;
        return found != 0;
    }
};

} // namespace

long VelStyleWordId(const char* word)
{
    return idOfWord(word ? word : "");
}

int VelStyleGetBool(const VelArgList* arguments, bool* value)
{
    return getTyped(arguments, value);
}

int VelStyleGetDouble(const VelArgList* arguments, double* value)
{
    return getTyped(arguments, value);
}

int VelStyleSetBool(const VelArgList* arguments, bool value)
{
    return setTyped(arguments, value, value ? " IValue=1" : " IValue=0");
}

int VelStyleSetDouble(const VelArgList* arguments, double value)
{
    return setTyped(arguments, value, describe(value));
}

int VelStyleGetLowLevel(const VelArgList* arguments)
{
    int code = StyleCode_Ok;
    const Value* value = findForReading(arguments, code);
    return value ? std::visit(Deliver{arguments}, *value) : code;
}

int VelStyleSetLowLevel(const VelArgList* arguments)
{
    if (!arguments)
        return StyleCode_NoArgumentList;
    std::string path;
    const int code = pathForWriting(arguments, describe(arguments), path);
    if (code != StyleCode_Ok)
        return code;
    const Value* present = tree().find(path);
    if (!present)
        return StyleCode_UnknownPath;
    Value value;
    return std::visit(Take{arguments, value}, *present) ? tree().write(path, value) : StyleCode_MissingValue;
}
