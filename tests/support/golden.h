#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace corvane::testing {

/// Set by --rebaseline: golden texts are rewritten, for a person to read, instead of compared.
inline bool rebaseline = false;

inline std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// Compares a text with tests/golden/NAME, byte for byte.
inline void ExpectGolden(const std::string& name, const std::string& text) {
    const std::string path = std::string(CORVANE_GOLDEN) + "/" + name;
    if (rebaseline)
        WriteBytes(path, text);
    EXPECT_EQ(text, ReadBytes(path)) << "golden text " << path;
}

} // namespace corvane::testing
