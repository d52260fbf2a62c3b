#include "tests/fuzz/StyleModel.h"

#include "engine/style/StyleCodes.h"

namespace velmora::engine::fuzz {

using namespace style;

namespace {

bool isText(const Value& value)
{
    return std::holds_alternative<std::string>(value);
}

/// A list gives and takes truth values as whole numbers.
Value asHeld(const Value& held, const Value& listed)
{
    if (std::holds_alternative<bool>(held) && std::holds_alternative<long>(listed))
        return std::get<long>(listed) != 0;
    return listed;
}

bool isAllowed(const StyleDefault& setting, const Value& value)
{
    if (const long* whole = std::get_if<long>(&value))
        return static_cast<double>(*whole) >= setting.minimum && static_cast<double>(*whole) <= setting.maximum;
    if (const double* real = std::get_if<double>(&value))
        return *real >= setting.minimum && *real <= setting.maximum;
    return true;
}

} // namespace

StyleModel::StyleModel()
{
    static const std::map<std::string, StyleDefault> defaults = [] {
        std::map<std::string, StyleDefault> byPath;
        for (const StyleDefault& setting : styleDefaults())
            byPath.emplace(setting.path, setting);
        return byPath;
    }();
    m_settings = defaults;
}

std::string StyleModel::storedPath(const std::string& path)
{
    static const std::string definitions = "GlobalPaper/PaperSizeInfo/";
    return path.compare(0, definitions.size(), definitions) == 0 ? path.substr(6) : path;
}

const StyleDefault* StyleModel::find(const std::string& path) const
{
    const auto found = m_settings.find(storedPath(path));
    return found == m_settings.end() ? nullptr : &found->second;
}

int StyleModel::beforeReading(const StyleCall& call) const
{
    if (call.unknownWord)
        return StyleCode_UnknownPath;
    if (call.offset)
        return StyleCode_NotSupported;
    if (!find(call.path))
        return StyleCode_UnknownPath;
    return m_failing.count(call.path) != 0 ? StyleCode_ReadFailed : StyleCode_Ok;
}

int StyleModel::beforeWriting(const StyleCall& call) const
{
    if (call.unknownWord)
        return StyleCode_UnknownPath;
    if (call.offset || call.partial)
        return StyleCode_NotSupported;
    const auto refused = m_refused.find(call.path);
    if (refused != m_refused.end() && refused->second != StyleCode_Ok)
        return refused->second;
    return find(call.path) ? StyleCode_Ok : StyleCode_UnknownPath;
}

int StyleModel::read(const StyleCall& call, const Value& sample, StyleAccess access) const
{
    const int code = beforeReading(call);
    if (code != StyleCode_Ok)
        return code;
    const Value& held = find(call.path)->value;
    if (access == StyleAccess::Exact)
        return held.index() == sample.index() ? StyleCode_Ok : StyleCode_WrongType;
    if (isText(held))
        return StyleCode_WrongType;
    return asHeld(held, sample).index() == held.index() ? StyleCode_Ok : StyleCode_MissingValue;
}

int StyleModel::readNothing(const StyleCall& call) const
{
    const int code = beforeReading(call);
    if (code != StyleCode_Ok)
        return code;
    return isText(find(call.path)->value) ? StyleCode_WrongType : StyleCode_MissingValue;
}

int StyleModel::write(const StyleCall& call, const Value& value, StyleAccess access)
{
    const int code = beforeWriting(call);
    if (code != StyleCode_Ok)
        return code;
    StyleDefault& setting = m_settings.at(storedPath(call.path));
    const Value given = access == StyleAccess::List ? asHeld(setting.value, value) : value;
    if (given.index() != setting.value.index())
        return access == StyleAccess::List ? StyleCode_MissingValue : StyleCode_WrongType;
    if (!isAllowed(setting, given))
        return StyleCode_OutOfRange;
    if (given == setting.value)
        return StyleCode_AlreadySet;
    setting.value = given;
    return StyleCode_Ok;
}

int StyleModel::writeNothing(const StyleCall& call) const
{
    const int code = beforeWriting(call);
    return code == StyleCode_Ok ? StyleCode_MissingValue : code;
}

void StyleModel::failReads(const std::string& path, bool fail)
{
    if (fail)
        m_failing.insert(path);
    else
        m_failing.erase(path);
}

void StyleModel::forgetSteering()
{
    m_refused.clear();
    m_failing.clear();
}

bool StyleModel::adopt(const std::string& path, const Value& value)
{
    StyleDefault& setting = m_settings.at(path);
    const bool allowed = value.index() == setting.value.index() && isAllowed(setting, value);
    setting.value = value;
    return allowed;
}

std::map<std::string, Value> StyleModel::values() const
{
    std::map<std::string, Value> result;
    for (const auto& entry : m_settings)
        result.emplace(entry.first, entry.second.value);
    return result;
}

const Value& StyleModel::value(const std::string& path) const
{
    return find(path)->value;
}

} // namespace velmora::engine::fuzz
