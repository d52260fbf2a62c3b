#include "engine/style/StyleTree.h"

#include "engine/style/StyleCodes.h"

#include <algorithm>

namespace velmora::engine::style {
namespace {

constexpr std::string_view DefinitionsBranch = "GlobalPaper/PaperSizeInfo/";
constexpr std::string_view::size_type GlobalLength = std::string_view("Global").size();

/// The path under which a value is stored.
std::string_view storedPath(std::string_view path)
{
    const bool isDefinition = path.substr(0, DefinitionsBranch.size()) == DefinitionsBranch;
    return isDefinition ? path.substr(GlobalLength) : path;
}

bool isInRange(const Value& value, double minimum, double maximum)
{
    double number = minimum;
    if (const long* whole = std::get_if<long>(&value))
        number = static_cast<double>(*whole);
    else if (const double* real = std::get_if<double>(&value))
        number = *real;
    return number >= minimum && number <= maximum; // false for a value that is not a number
}

template <typename T>
T lookup(std::string_view path)
{
    const Value* value = tree().find(path);
    const T* typed = value ? std::get_if<T>(value) : nullptr;
    return typed ? *typed : T();
}

StyleTree theTree;

} // namespace

StyleTree& tree()
{
    return theTree;
}

StyleTree::StyleTree()
{
    for (const StyleDefault& setting : styleDefaults())
        m_settings.emplace(setting.path, Setting{setting.value, setting.minimum, setting.maximum});
}

const Value* StyleTree::find(std::string_view path) const
{
    const auto found = m_settings.find(storedPath(path));
    return found == m_settings.end() ? nullptr : &found->second.value;
}

int StyleTree::write(std::string_view path, const Value& value)
{
    const auto found = m_settings.find(storedPath(path));
    if (found == m_settings.end())
        return StyleCode_UnknownPath;
    Setting& setting = found->second;
    if (setting.value.index() != value.index())
        return StyleCode_WrongType;
    if (!isInRange(value, setting.minimum, setting.maximum))
        return StyleCode_OutOfRange;
    if (setting.value == value)
        return StyleCode_AlreadySet;
    setting.value = value;
    changed(found->first);
    return StyleCode_Ok;
}

void StyleTree::reset()
{
    for (const StyleDefault& setting : styleDefaults())
        m_settings.find(setting.path)->second.value = setting.value;
    changed("");
}

void StyleTree::addObserver(Observer observer)
{
    if (std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end())
        m_observers.push_back(observer);
}

void StyleTree::changed(std::string_view path)
{
    ++m_changeCount;
    for (const Observer observer : m_observers)
        observer(path);
}

bool lookupBool(std::string_view path)
{
    return lookup<bool>(path);
}

long lookupInt(std::string_view path)
{
    return lookup<long>(path);
}

double lookupDouble(std::string_view path)
{
    return lookup<double>(path);
}

std::string lookupText(std::string_view path)
{
    return lookup<std::string>(path);
}

} // namespace velmora::engine::style
