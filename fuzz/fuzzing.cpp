#include "fuzzing.h"

#include "core/format/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace corvane::fuzzing {
namespace {

constexpr const char* limits[] = {"1E+300",
                                  "-1E+300",
                                  "1E-300",
                                  "1.7976931348623157E+308",
                                  "-1.7976931348623157E+308",
                                  "5E-324",
                                  "1E+154",
                                  "1E-154",
                                  "10000000000000001",
                                  "9007199254740993",
                                  "0.30000000000000004",
                                  "3.0000000000000004",
                                  "1E+30",
                                  "-1E-30",
                                  "100000001",
                                  "-1E+100"};
constexpr const char* words[] = {"",  " ", "word", "NaN", "1E+999", "-0", "Y", "y",
                                 "0", "N", "1,5",  "NA",  "1d5",    "+7", ".", "\"q\""};

/// Whether a word of a report is the text of no number.
bool SaysNoNumber(std::string_view word) {
    for (const std::string_view text : {"nan", "-nan", "inf", "-inf", "NaN", "Infinity", "-Infinity"})
        if (word == text)
            return true;
    return false;
}

void RequireFinite(const ReportLine& line) {
    for (const ReportPiece& piece : line.pieces)
        if (const auto* number = piece.field ? std::get_if<double>(&piece.field->field.value) : nullptr)
            Require(std::isfinite(*number), "a number of the report is finite", piece.field->name);
    if (!line.listing)
        return;
    for (const ListingColumn& column : line.listing->columns) {
        if (!column.values)
            continue;
        Require(column.values->size() >= line.listing->rows, "a listing's column is as long as the listing",
                column.name);
        Require(std::ranges::all_of(*column.values, [](double value) { return std::isfinite(value); }),
                "the numbers of a listing are finite", column.name);
    }
}

} // namespace

void Breach(const std::string& promise, std::string_view shown) {
    std::fprintf(stderr, "BREACH: %s: %.*s\n", promise.c_str(), static_cast<int>(shown.size()), shown.data());
    std::abort();
}

std::size_t LineCount(std::string_view text) {
    return 1 + static_cast<std::size_t>(
                   std::ranges::count_if(text, [](char c) { return c == '\r' || c == '\n'; }));
}

void RequireFinite(const Report& report) {
    for (const ReportSection& section : report.Sections()) {
        for (const ReportLine& line : section.lines)
            RequireFinite(line);
        for (const std::string& reason : section.failures)
            // "Infinity does not fit a field": the statistic itself should have refused.
            Require(!reason.empty() && !SaysNoNumber(reason.substr(0, reason.find(' '))),
                    "a failed statement has a reason", section.id + ": " + reason);
    }
    const std::string text = report.Text();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = std::min(text.find_first_not_of(" \r\n,;:()[]%", at), text.size());
        at = std::min(text.find_first_of(" \r\n,;:()[]%", start), text.size());
        Require(!SaysNoNumber(std::string_view(text).substr(start, at - start)),
                "the report shows numbers only", text.substr(start - std::min<std::size_t>(start, 80), 100));
    }
}

std::uint8_t Bytes::Next() {
    if (rest.empty())
        return 0;
    const auto byte = static_cast<std::uint8_t>(rest.front());
    rest.remove_prefix(1);
    return byte;
}

std::string Bytes::Cell() {
    const std::uint8_t byte = Next();
    const int low = byte % 16;
    switch (byte / 16) {
    case 2:
        return words[low];
    case 3:
        return std::to_string(low);
    case 4:
        return NumberText(low / 10.0);
    case 5:
        return std::to_string(-low);
    case 6:
        return std::to_string(1000 + low);
    case 7:
        return limits[low];
    default:
        break;
    }
    double fraction = 0;
    for (int more = low % 8; more >= 0; --more)
        fraction = fraction / 256 + static_cast<double>(Next()) - 100;
    return NumberText(std::ldexp(fraction, low < 8 ? 0 : Next() % 201 - 100));
}

} // namespace corvane::fuzzing
