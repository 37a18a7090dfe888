#include "fuzzing.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

/// Runs a target on the files of a folder, where there is no fuzzer: a breach is a failed test.
int main(int count, char** arguments) {
    int inputs = 0;
    for (int i = 1; i < count; ++i)
        for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[i])) {
            if (!entry.is_regular_file())
                continue;
            std::ostringstream bytes;
            bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
            const std::string input = bytes.str();
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
            ++inputs;
        }
    return inputs > 0 ? 0 : 1;
}
