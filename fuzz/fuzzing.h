#pragma once

#include "report/report.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What every fuzz target defines: one input. Only a breach ends the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace corvane::fuzzing {

/// Says which promise was broken, and ends the program.
[[noreturn]] void Breach(const std::string& promise, std::string_view shown);

/// A promise that holds for every input; `shown` is what broke it.
inline void Require(bool holds, const char* promise, std::string_view shown = {}) {
    if (!holds)
        Breach(promise, shown);
}

/// How many lines a text has, counted generously: CR and LF each end one.
std::size_t LineCount(std::string_view text);

/// Every number of the report, those of long tables too, is finite, no words like "nan" or "inf" are in it,
/// and no statement of it failed only because a number was not finite.
void RequireFinite(const Report& report);

/// Takes an input apart. After its end there are zeros.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : rest(reinterpret_cast<const char*>(data), size) {} // NOLINT: bytes are bytes

    bool AtEnd() const { return rest.empty(); }
    std::string_view Rest() const { return rest; }
    std::uint8_t Next();
    bool Bit() { return Next() % 2 == 1; }
    std::size_t Below(std::size_t bound) { return Next() % bound; }
    template<class List>
    const auto& OneOf(const List& list) {
        return list[Below(std::size(list))];
    }

    /// The text of a cell, by one byte, so that an input can be typed: "0" to "9" are these digits, "@" to
    /// "O" 0.0 to 1.5, "P" to "_" 0 to -15, "`" to "o" 1000 to 1015, "p" to DEL numbers at the limits, " " to
    /// "/" blanks and words. Of other bytes the lower half says how many bytes after them give a fraction of
    /// 2 to the power of -100 to 100.
    std::string Cell();

private:
    std::string_view rest;
};

} // namespace corvane::fuzzing
