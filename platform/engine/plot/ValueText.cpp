#include "engine/plot/ValueText.h"

#include <array>
#include <charconv>

namespace velmora::engine {

namespace {

constexpr int Digits = 9;

} // namespace

std::string valueText(double value)
{
    std::array<char, 40> buffer{};
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, Digits);
    return {buffer.data(), written.ptr};
}

std::string valueText(float value)
{
    std::array<char, 40> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

} // namespace velmora::engine
