#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace velmora::engine::test {

/// Fonts other than the system's, for a program that has not set any text yet.
class FontSettings {
public:
    explicit FontSettings(const std::string& settings)
    {
        std::ofstream(m_path) << "<?xml version=\"1.0\"?><fontconfig>" << settings << "</fontconfig>";
        EXPECT_EQ(setenv("FONTCONFIG_FILE", m_path.c_str(), 1), 0);
    }
    ~FontSettings() { std::remove(m_path.c_str()); }
    FontSettings(const FontSettings&) = delete;
    FontSettings& operator=(const FontSettings&) = delete;

private:
    std::string m_path = testing::TempDir() + "velmora-fonts-" + std::to_string(getpid()) + ".conf";
};

} // namespace velmora::engine::test
