#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/data/MemoryByteStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <unistd.h>
#include <vector>

namespace velmora::engine::test {

constexpr double Gap = std::numeric_limits<double>::quiet_NaN();

/// Counts the portions, keeps the fractions, and stops after `lastsFor` of them.
class CountingCheckpoint final : public Checkpoint {
public:
    explicit CountingCheckpoint(int lastsFor = std::numeric_limits<int>::max()) : m_lastsFor(lastsFor) {}
    bool goOn(double fraction) override
    {
        fractions.push_back(fraction);
        return static_cast<int>(fractions.size()) <= m_lastsFor;
    }

    std::vector<double> fractions;

private:
    int m_lastsFor;
};

inline DataSet readText(const std::string& text)
{
    MemoryByteStream stream(text);
    CountingCheckpoint checkpoint;
    return readData(stream, "folder/sample.txt", checkpoint);
}

inline Table readTable(const std::string& text)
{
    return *std::get<std::shared_ptr<const Table>>(readText(text));
}

inline Grid readGrid(const std::string& text)
{
    return *std::get<std::shared_ptr<const Grid>>(readText(text));
}

/// The message with which reading the text fails; empty when it does not fail.
inline std::string errorOf(const std::string& text)
{
    try {
        readText(text);
    } catch (const ReadError& error) {
        return error.what();
    }
    return std::string();
}

/// Equal number for number, where a gap equals a gap.
template <class Real>
bool sameValues(const std::vector<Real>& left, const std::vector<Real>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](Real a, Real b) { return a == b || (std::isnan(a) && std::isnan(b)); });
}

/// A file that goes when this goes.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content)
    {
        char name[] = "/tmp/velmora-data-XXXXXX";
        close(mkstemp(name));
        m_name = name;
        std::ofstream(m_name, std::ios::binary) << content;
    }
    ~TemporaryFile() { std::remove(m_name.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& name() const { return m_name; }

private:
    std::string m_name;
};

/// A malformed text, and what the message about it must say.
struct Malformed {
    const char* name;
    std::string text;
    std::vector<std::string> says;
};

inline void PrintTo(const Malformed& malformed, std::ostream* stream)
{
    *stream << malformed.name;
}

inline std::string nameOf(const ::testing::TestParamInfo<Malformed>& info)
{
    return info.param.name;
}

inline void expectRefused(const Malformed& malformed)
{
    const std::string error = errorOf(malformed.text);
    EXPECT_NE(error.find("\"folder/sample.txt\""), std::string::npos) << "no file name: " << error;
    for (const std::string& part : malformed.says)
        EXPECT_NE(error.find(part), std::string::npos) << "'" << part << "' is not in: " << error;
}

} // namespace velmora::engine::test
