#include "tests/fuzz/StyleRun.h"

#include "engine/style/StyleCodes.h"
#include "engine/style/StyleTree.h"
#include "testing/EngineProbe.h"
#include "tests/fuzz/FuzzSupport.h"
#include "toolbox/StringList.h"
#include "toolbox/StyleValue.h"

#include <algorithm>
#include <cstring>

namespace velmora::engine::fuzz {

using namespace style;
using testing::EngineProbe;
using toolbox::StringList;
using toolbox::StyleValue;

namespace {

constexpr std::size_t LongestNewWord = 2; // a word that became an identifier is never forgotten

unsigned long heard = 0;
std::string lastHeard;

void hear(std::string_view path)
{
    ++heard;
    lastHeard = path;
}

/// Identifiers that were given out, with their words.
std::map<long, std::string>& knownIds()
{
    static std::map<long, std::string> ids;
    return ids;
}

std::string cutAtZero(const std::string& word)
{
    return std::string(word.c_str());
}

std::set<std::string> wordsOfTheTree()
{
    std::set<std::string> words{"GlobalPaper"};
    for (const StyleDefault& setting : styleDefaults())
        for (std::string::size_type begin = 0; begin <= setting.path.size();) {
            const std::string::size_type end = std::min(setting.path.find('/', begin), setting.path.size());
            words.insert(setting.path.substr(begin, end - begin));
            begin = end + 1;
        }
    return words;
}

bool mayBecomeId(const std::string& word)
{
    static const std::set<std::string> known = wordsOfTheTree();
    return word.size() <= LongestNewWord || known.count(word) != 0;
}

long idOf(const std::string& word)
{
    std::vector<long> ids;
    StyleValue::initMacroIDsfromStyleValueNames(ids, word.c_str());
    require(ids.size() == 2 && ids[0] > 0 && ids[1] == -1, "a word has one identifier");
    const auto known = knownIds().emplace(ids[0], word).first;
    require(known->second == word, "no two words share an identifier");
    return ids[0];
}

std::string joined(const std::vector<std::string>& words)
{
    std::string path;
    for (const std::string& word : words)
        path += (&word == &words.front() ? "" : "/") + word;
    return path;
}

} // namespace

StyleRun::StyleRun()
{
    EngineProbe::reset();
    tree().reset();
    tree().addObserver(&hear);
}

StyleRun::~StyleRun()
{
    EngineProbe::reset();
}

void StyleRun::carryOut(const StyleStep& step)
{
    if (!addExtra(step) && !steer(step)) {
        call(step);
        m_extras = Extras();
    }
}

bool StyleRun::addExtra(const StyleStep& step)
{
    switch (step.operation) {
    case 'o':
        m_extras.offset1 = static_cast<int>(step.number);
        return true;
    case 'p':
        m_extras.offset2 = static_cast<int>(step.number);
        return true;
    case 's':
        m_extras.set = step.number;
        return true;
    case 'a':
        m_extras.assignment = static_cast<int>(step.number);
        return true;
    case 'm':
        m_extras.moreIds.push_back(step.number);
        return true;
    case 'x':
        m_extras.rawArguments.push_back(step);
        return true;
    default:
        return false;
    }
}

bool StyleRun::steer(const StyleStep& step)
{
    const std::string path = joined(step.words);
    switch (step.operation) {
    case 'r':
        EngineProbe::refuseStyleWrites(path, static_cast<int>(step.number));
        m_model.refuseWrites(path, static_cast<int>(step.number));
        return true;
    case 'f':
        EngineProbe::failStyleReads(path, step.number != 0);
        m_model.failReads(path, step.number != 0);
        return true;
    case 'l':
        EngineProbe::startLog();
        return true;
    case 'z':
        EngineProbe::reset();
        m_model.forgetSteering();
        return true;
    default:
        return false;
    }
}

/// Fills the argument list; what it names.
StyleCall StyleRun::setUp(const StyleStep& step)
{
    StringList texts;
    std::vector<std::string> path;
    std::vector<long> ids;
    for (const std::string& word : step.words) {
        if (path.size() < step.texts || (ids.empty() && !mayBecomeId(cutAtZero(word))))
            texts.append(word);
        else if (mayBecomeId(cutAtZero(word)))
            ids.push_back(idOf(cutAtZero(word)));
        else
            continue;
        path.push_back(cutAtZero(word));
    }
    StyleCall call;
    for (const long id : m_extras.moreIds) {
        ids.push_back(id);
        if (id == -1)
            break;
        const auto known = knownIds().find(id);
        call.unknownWord = call.unknownWord || known == knownIds().end();
        path.push_back(known == knownIds().end() ? "" : known->second);
    }
    const void* set = nullptr;
    std::memcpy(&set, &m_extras.set, sizeof set);
    StyleValue(texts).setupSetValueArgList(ids, set, m_extras.offset1, m_extras.offset2, m_extras.assignment,
                                           m_arguments);
    call.path = joined(path);
    call.offset = m_extras.offset1 != -1 || m_extras.offset2 != -1;
    call.partial = m_extras.set != 0 || m_extras.assignment != 255;
    return call;
}

/// Arguments that the toolbox would not append: any name with a value of any type.
void StyleRun::appendRawArguments()
{
    for (const StyleStep& raw : m_extras.rawArguments) {
        const std::string name = joined(raw.words);
        switch (raw.number) {
        case 0:
            m_arguments.appendArbParam(name.c_str(), wholeValue(raw));
            break;
        case 1:
            m_arguments.appendDouble(name.c_str(), realValue(raw));
            break;
        case 2:
            m_arguments.appendString(name.c_str(), raw.value.c_str());
            break;
        case 3:
            m_arguments.appendArbParamPtr(name.c_str(), &m_reader);
            break;
        case 4:
            m_arguments.appendDoublePtr(name.c_str(), &m_realReader);
            break;
        default:
            m_arguments.appendArbParamPtr(name.c_str(), nullptr);
        }
    }
}

void StyleRun::call(const StyleStep& step)
{
    const StyleCall call = setUp(step);
    if (step.operation >= 'b' && step.operation <= 'n')
        read(step, call);
    else
        write(step, call);
}

template <typename T>
void StyleRun::readExact(const StyleCall& call, T before)
{
    T value = before;
    const int code = StyleValue::getFinalValue(&value, m_arguments);
    require(code == m_model.read(call, before, StyleAccess::Exact), "a typed read answers as it should");
    const Value expected = code == StyleCode_Ok ? m_model.value(call.path) : Value(before);
    require(expected == Value(value), "a typed read delivers the value or leaves all as it was");
}

template <typename T>
void StyleRun::readIntoList(const StyleCall& call, T before)
{
    T value = before;
    if constexpr (std::is_same_v<T, long>)
        m_arguments.appendArbParamPtr("IValue", &value);
    else
        m_arguments.appendDoublePtr("DValue", &value);
    const int code = StyleValue::styleGetLowLevel(m_arguments);
    require(code == m_model.read(call, before, StyleAccess::List), "a read into a list answers as it should");
    if (code != StyleCode_Ok)
        require(value == before, "a read that failed leaves all as it was");
    else if (const bool* truth = std::get_if<bool>(&m_model.value(call.path)))
        require(value == static_cast<T>(*truth), "a truth value is 0 or 1");
    else
        require(Value(value) == m_model.value(call.path), "a read into a list delivers the value");
}

void StyleRun::read(const StyleStep& step, const StyleCall& call)
{
    const unsigned long changes = tree().changeCount();
    if (!m_extras.rawArguments.empty()) {
        appendRawArguments();
        bool truth = false;
        StyleValue::getFinalValue(&truth, m_arguments);
        StyleValue::styleGetLowLevel(m_arguments);
    } else if (step.operation == 'b') {
        readExact(call, wholeValue(step) != 0);
    } else if (step.operation == 'd') {
        readExact(call, static_cast<double>(wholeValue(step)));
    } else if (step.operation == 'i') {
        readIntoList(call, wholeValue(step));
    } else if (step.operation == 'e') {
        readIntoList(call, static_cast<double>(wholeValue(step)));
    } else {
        require(StyleValue::styleGetLowLevel(m_arguments) == m_model.readNothing(call),
                "a read that has nowhere to go answers as it should");
    }
    require(tree().changeCount() == changes, "a read changes nothing");
}

/// Writes the value as the operation says, in both; the code of the tree.
int StyleRun::writeValue(const StyleStep& step, const StyleCall& call)
{
    int expected = StyleCode_Ok;
    int code = StyleCode_Ok;
    if (step.operation == 'B') {
        expected = m_model.write(call, wholeValue(step) != 0, StyleAccess::Exact);
        code = StyleValue::setFinalValue(wholeValue(step) != 0, m_arguments);
    } else if (step.operation == 'D') {
        expected = m_model.write(call, realValue(step), StyleAccess::Exact);
        code = StyleValue::setFinalValue(realValue(step), m_arguments);
    } else {
        expected = appendValue(step, call);
        code = StyleValue::styleSetLowLevel(m_arguments);
    }
    require(code == expected, "a write answers as it should");
    return code;
}

/// Appends the value of a write to the list, and writes it to the model; the model's code.
int StyleRun::appendValue(const StyleStep& step, const StyleCall& call)
{
    switch (step.operation) {
    case 'I':
        m_arguments.appendArbParam("IValue", wholeValue(step));
        return m_model.write(call, wholeValue(step), StyleAccess::List);
    case 'E':
        m_arguments.appendDouble("DValue", realValue(step));
        return m_model.write(call, realValue(step), StyleAccess::List);
    case 'S':
        m_arguments.appendString("SValue", step.value.c_str());
        return m_model.write(call, cutAtZero(step.value), StyleAccess::List);
    default:
        return m_model.writeNothing(call);
    }
}

/// What such a list names and carries is anybody's guess; the model takes over what came of it.
int StyleRun::writeRawArguments()
{
    appendRawArguments();
    const int code = StyleValue::styleSetLowLevel(m_arguments);
    for (const auto& entry : m_model.values())
        require(m_model.adopt(entry.first, *tree().find(entry.first)), "the tree holds allowed values only");
    return code;
}

void StyleRun::write(const StyleStep& step, const StyleCall& call)
{
    const unsigned long changes = tree().changeCount();
    const unsigned long heardBefore = heard;
    const bool raw = !m_extras.rawArguments.empty();
    const int code = raw ? writeRawArguments() : writeValue(step, call);
    const unsigned long expected = code == StyleCode_Ok ? 1 : 0;
    require(tree().changeCount() - changes == expected, "a write counts as a change when it is taken");
    require(heard - heardBefore == expected, "observers hear of every change and of nothing else");
    if (code == StyleCode_Ok && !raw)
        require(lastHeard == StyleModel::storedPath(call.path), "observers hear of the path");
}

void StyleRun::compare() const
{
    for (const auto& [path, value] : m_model.values()) {
        const Value* held = tree().find(path);
        require(held && *held == value, "the tree holds what was written");
    }
}

} // namespace velmora::engine::fuzz
