#include "engine/data/UnitText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace velmora::engine {

namespace {

constexpr std::string_view OpenBrackets = "([<{";
constexpr std::string_view CloseBrackets = ")]>}";

constexpr std::string_view Units[] = {
    "m",   "km",  "cm",  "mm", "um",  "nm",   "ft",  "in",   "mi",  "s",   "sec", "ms",   "us",   "ns",
    "min", "h",   "hr",  "d",  "day", "days", "yr",  "year", "K",   "C",   "F",   "degC", "degF", "deg",
    "rad", "ppm", "ppb", "V",  "mV",  "kV",   "A",   "mA",   "W",   "mW",  "kW",  "MW",   "Wh",   "kWh",
    "J",   "kJ",  "MJ",  "Hz", "kHz", "MHz",  "GHz", "Pa",   "hPa", "kPa", "MPa", "bar",  "mbar", "psi",
    "g",   "mg",  "kg",  "t",  "lb",  "N",    "kN",  "Nm",   "l",   "L",   "ml",  "mL",   "mol",  "m2",
    "m3",  "dB",  "dBm", "lx", "lm",  "T",    "mT",  "Ohm",  "ohm", "F",   "nF",  "rpm",  "UTC",  "1"};

bool isInBrackets(std::string_view text)
{
    const std::size_t kind = text.empty() ? std::string_view::npos : OpenBrackets.find(text.front());
    return text.size() > 2 && kind != std::string_view::npos && text.back() == CloseBrackets[kind];
}

/// "s-1", "m^2"
bool endsWithPower(std::string_view text)
{
    return text.size() > 2 && text[text.size() - 2] == '-' && text.back() >= '1' && text.back() <= '4';
}

} // namespace

bool looksLikeUnit(std::string_view text)
{
    constexpr std::array<std::string_view, 8> Signs = {"/", "%", "^", "°", "µ", "²", "³", "·"};
    return isInBrackets(text) || endsWithPower(text) ||
           std::any_of(Signs.begin(), Signs.end(),
                       [text](std::string_view sign) { return text.find(sign) != std::string_view::npos; }) ||
           std::find(std::begin(Units), std::end(Units), text) != std::end(Units);
}

std::string unitOf(std::string_view text)
{
    text = isInBrackets(text) ? text.substr(1, text.size() - 2) : text;
    return text == "-" ? std::string() : std::string(text);
}

} // namespace velmora::engine
