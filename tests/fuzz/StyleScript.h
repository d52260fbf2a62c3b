#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora::engine::fuzz {

/// One line of a script for the style tree, "B1 0 1 Paper/OrientPortrait": an operation, how many of
/// the words are given as texts (the others become macro identifiers), a number, a value and words.
/// What a line lacks is 0 or empty, so that every text is a script.
struct StyleStep {
    char operation = 0;
    std::size_t texts = 0;
    long number = 0;
    std::string value;
    std::vector<std::string> words;
};

std::vector<StyleStep> styleScript(std::string_view text);

/// The value as a number: 0 if it is none, and it may be infinite or not a number.
double realValue(const StyleStep& step);
long wholeValue(const StyleStep& step);

} // namespace velmora::engine::fuzz
