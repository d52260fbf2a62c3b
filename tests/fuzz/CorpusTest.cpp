// What a fuzzer found worth keeping, and what it once failed on, without the fuzzer.

#include "tests/support/DataExamples.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

namespace files = std::filesystem;

std::vector<files::path> keptInputs()
{
    std::vector<files::path> inputs;
    for (const files::directory_entry& entry : files::directory_iterator(VELMORA_CORPUS))
        inputs.push_back(entry.path());
    return inputs;
}

std::vector<std::uint8_t> bytesOf(const files::path& input)
{
    std::ifstream stream(input, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace

TEST(Corpus, EveryKeptInputDoesWhatItShould)
{
    const std::vector<files::path> inputs = keptInputs();
    ASSERT_FALSE(inputs.empty()) << VELMORA_CORPUS;
    for (const files::path& input : inputs) {
        const std::vector<std::uint8_t> bytes = bytesOf(input);
        EXPECT_NO_THROW(LLVMFuzzerTestOneInput(bytes.data(), bytes.size())) << input;
    }
}

TEST(Corpus, TheExamplesOfTheDocumentsDoToo)
{
    for (const velmora::test::DataExample& example : velmora::test::dataExamples(VELMORA_DATA_EXAMPLES)) {
        const std::vector<std::uint8_t> bytes(example.text.begin(), example.text.end());
        EXPECT_NO_THROW(LLVMFuzzerTestOneInput(bytes.data(), bytes.size())) << example.what;
    }
}
