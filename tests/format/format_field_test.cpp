#include "core/format/format_field.h"

#include "core/format/format_picture.h"
#include "core/format/numbers.h"
#include "core/format/text_lists.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <tuple>

namespace corvane {
namespace {

std::string Shown(Field field) {
    return FormatField(field).value_or("refused");
}

TEST(FormatField, FitsNumbersIntoColumns) {
    EXPECT_EQ(Shown({.value = 0.0, .width = 10}), "          ");
    EXPECT_EQ(Shown({.value = 1234567.891, .width = 10, .decimals = 4}), "       n/a");
    EXPECT_EQ(Shown({.value = 0.25, .width = 9, .decimals = 4, .alignment = AlignCentre}), " 0.2500  ");
    EXPECT_EQ(Shown({.value = 55.0, .width = 1}), "n");
}

TEST(FormatField, AlignmentZeroBecomesRightAndOthersActAsLeft) {
    Field field{.value = 1.5, .width = 5, .decimals = 1};
    EXPECT_EQ(FormatField(field), "  1.5");
    EXPECT_EQ(field.alignment, AlignRight);
    for (const std::int16_t alignment : {std::int16_t{7}, std::int16_t{-1}}) {
        field.alignment = alignment;
        EXPECT_EQ(FormatField(field), "1.5  ");
        EXPECT_EQ(field.alignment, alignment);
    }
}

TEST(FormatField, RaisesProbabilitiesThatWouldPrintAsZero) {
    const auto raised = [](CellValue value, std::int32_t decimals) {
        Field field{.value = std::move(value), .width = 8, .decimals = decimals, .probability = true};
        const std::string text = FormatField(field).value_or("refused");
        return std::string(TrimBlanks(text)) + "|" + CellText(field.value);
    };
    const std::tuple<CellValue, int, std::string> fields[] = {
        {0.0, 4, "0.0001|0.0001"},
        {0.00001, 4, "0.0001|0.00011"},
        {0.05, 4, "0.0500|0.05"},
        {-3.0, 4, "0.0001|0.0001"},
        {0.5, 0, "2|1.5"},
        {"-0.5", 2, "0.01|0.01"},
        {"", 2, "|"},
        {"word", 2, "refused|word"},
        {".", 2, "refused|."},
        {0.00005, 4, "0.0002|" + NumberText(0.00005 + 0.0001)}, // no double is 0.00015
        {0.0001, 4, "0.0001|0.0001"},                           // one unit exactly stays
        {" 0.50", 2, "0.50| 0.50"}};                            // and text that needs no raising stays text
    for (const auto& [value, decimals, text] : fields)
        EXPECT_EQ(raised(value, decimals), text);
}

TEST(FormatField, RefusesWhatNoPictureCanShow) {
    // ".2500" fits, but "0.0000" has no place for its filler; "1.2500" is too wide at once.
    EXPECT_EQ(Shown({.value = 0.25, .width = 5, .decimals = 4}), "refused");
    EXPECT_EQ(Shown({.value = 1.25, .width = 5, .decimals = 4}), "  n/a");
    // "-.2500" fits too; its final look is one longer and is cut.
    EXPECT_EQ(Shown({.value = -0.25, .width = 6, .decimals = 4}), "-0.250");
    EXPECT_EQ(Shown({.value = 5.0, .width = 1, .leadingZero = true}), "refused");
    EXPECT_EQ(Shown({.value = 5.0, .width = 5, .decimals = -1}), "refused");
    EXPECT_EQ(Shown({.value = 5.0, .width = -1}), "refused");
    EXPECT_EQ(Shown({.width = -1}), "refused");
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(Shown({.value = value, .width = 9, .probability = true}), "refused");
    EXPECT_EQ(Shown({.value = 0.5, .width = 9, .decimals = 400, .probability = true}), "refused");
    EXPECT_EQ(Shown({.value = 0.5, .width = 9, .decimals = 2147483647}), "      n/a");
}

TEST(FormatField, ShowsTextByItsCharacters) {
    EXPECT_EQ(Shown({.value = ".", .width = 3, .decimals = 2}), "0.0");
    EXPECT_EQ(Shown({.value = ".", .width = 2}), ".0");
    EXPECT_EQ(Shown({.value = ".", .width = 1}), "0");
    EXPECT_EQ(Shown({.value = "µg/é", .width = 5}), " µg/é");
    EXPECT_EQ(Shown({.value = "µg/éé", .width = 4}), " n/a");
    EXPECT_EQ(Shown({.width = 3, .decimals = 2}), "   ");
}

TEST(AlignField, CutsAndPads) {
    const std::tuple<const char*, int, std::int16_t, const char*> fields[] = {
        {"", 5, AlignLeft, ""},
        {"éèêë", 2, AlignRight, "éè"},
        {"éè", 5, AlignCentre, " éè  "},
        {"   ", 5, AlignLeft, "  "},
        {"a", -1, AlignLeft, ""},
        // The blanks to add are counted before the text's own are dropped.
        {"  a", 5, AlignRight, "  a"},
        {"  a", 5, AlignLeft, "a  "},
        {"  a", 5, AlignCentre, "   a "}};
    for (const auto& [text, width, alignment, aligned] : fields)
        EXPECT_EQ(AlignField(text, width, alignment), aligned) << text;
}

// The field by its pictures, step for step, for a number without the probability flag.
std::string ByPictures(const Field& field) {
    const std::string zeros(static_cast<std::size_t>(field.decimals), '0');
    const std::string zero = field.leadingZero ? "0" : "";
    const std::string first = field.decimals != 0 ? zero + "." + zeros : field.leadingZero ? "0" : "#";
    const std::string shown = FormatPicture(field.value, first).value();
    if (static_cast<std::int32_t>(shown.size()) > field.width)
        return AlignField("n/a", field.width, field.alignment);
    if (shown.empty())
        return std::string(static_cast<std::size_t>(field.width), ' ');
    const std::int32_t own = field.decimals != 0 ? field.decimals + 2 : field.leadingZero ? 2 : 1;
    if (field.width < own)
        return "refused";
    const std::string second = std::string(static_cast<std::size_t>(field.width - own), '#') +
                               (field.decimals != 0 ? "0." + zeros : zero);
    return AlignField(FormatPicture(field.value, second).value(), field.width, field.alignment);
}

TEST(FormatField, IsTheCompositionOfItsPictures) {
    std::mt19937_64 random(7);
    const auto below = [&](std::uint64_t limit) { return static_cast<std::int32_t>(random() % limit); };
    for (int i = 0; i < 400000; ++i) {
        Field field{.width = below(20), .decimals = below(9), .leadingZero = below(2) == 0};
        field.alignment = static_cast<std::int16_t>(1 + below(3));
        const double sign = below(2) == 0 ? 1 : -1;
        field.value = sign * (below(4) == 0 ? below(2000) / 16.0 : std::pow(10.0, below(3000) / 100.0 - 12));
        ASSERT_EQ(Shown(field), ByPictures(field))
            << CellText(field.value) << " w " << field.width << " d " << field.decimals;
    }
}

} // namespace
} // namespace corvane
