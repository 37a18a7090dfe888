#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace corvane {

/// How a place shows its value beyond width and decimals.
enum class Look {
    Number,
    Probability, ///< Never prints as zero.
    LeadingZero, ///< A zero shows also where there are no decimals.
    Trimmed,     ///< A number without the blanks around it.
};

/// A place where a section prints a value: which quantity it is, and what it looks like there.
struct Place {
    std::string_view name;     ///< Machine name, unique within its section; "*" is a part that varies.
    std::string_view quantity; ///< Key of the quantity.
    std::string_view label{};  ///< The words in front of the value, as printed.
    std::int32_t width = 10;   ///< In characters.
    std::int32_t decimals = 5;
    Look look = Look::Number;
};

/// The places of a section: its own, and those of a block that several sections print.
using PlaceTables = std::array<std::span<const Place>, 2>;

/// What is told of a section before it is written.
struct SectionFrame {
    std::string_view id;    ///< Machine name, unique within a report.
    std::string_view title; ///< As printed; empty: the section has no title.
    PlaceTables places{};
};

} // namespace corvane
