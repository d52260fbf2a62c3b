// Writes the examples of docs/data-files.md into a folder, one a file: what the fuzzers of the readers begin with.
//   write_fuzz_seeds FOLDER

#include "tests/support/DataExamples.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_fuzz_seeds FOLDER\n");
        return 2;
    }
    int number = 0;
    for (const velmora::test::DataExample& example : velmora::test::dataExamples(VELMORA_DATA_EXAMPLES)) {
        const std::string name = std::string(argv[1]) + "/example-" + std::to_string(++number);
        if (!(std::ofstream(name, std::ios::binary) << example.text).flush()) {
            std::fprintf(stderr, "write_fuzz_seeds: %s could not be written; does the folder exist?\n", name.c_str());
            return 1;
        }
    }
    return 0;
}
