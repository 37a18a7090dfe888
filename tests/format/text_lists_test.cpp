#include "core/format/text_lists.h"

#include "core/format/cell_value.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Parts = std::vector<std::string>;
using namespace std::string_view_literals;

TEST(SplitText, CountsPiecesFromOne) {
    const auto split = [](std::string_view text, std::string_view delimiter) {
        Parts parts;
        const std::int32_t count = SplitText(text, delimiter, parts);
        EXPECT_EQ(static_cast<std::size_t>(count) + 1, parts.size());
        return parts;
    };
    EXPECT_EQ(split("a, b,,c", ","), (Parts{"", "a", " b", "", "c"}));
    EXPECT_EQ(split("a\r\nb\r\n", "\r\n"), (Parts{"", "a", "b", ""}));
    EXPECT_EQ(split("aaa", "aa"), (Parts{"", "", "a"}));
    EXPECT_EQ(split("abc", "x"), (Parts{"", "abc"}));
    EXPECT_EQ(split(",", ","), (Parts{"", ","}));
    EXPECT_EQ(split("a", "abc"), (Parts{"", "a"}));

    Parts kept{"old"};
    EXPECT_EQ(SplitText("", ",", kept), 0);
    EXPECT_EQ(SplitText("a", "", kept), 0);
    EXPECT_EQ(kept, Parts{"old"});
    EXPECT_EQ(SplitText(std::string("b,") + kept[0], ",", kept), 2);
    EXPECT_EQ(kept, (Parts{"", "b", "old"}));
}

TEST(SplitFileList, TakesOnePathOrAFolderWithNames) {
    const auto split = [](std::string_view text) {
        Parts parts{"old", "old", "old"};
        const std::int32_t count = SplitFileList(text, parts);
        EXPECT_EQ(static_cast<std::size_t>(count) + 1, parts.size());
        return parts;
    };
    EXPECT_EQ(split("C:\\a\\b.KOV\0"sv), (Parts{"C:\\a", "b.KOV"}));
    EXPECT_EQ(split("C:\\b.KOV\0"sv), (Parts{"C:\\", "b.KOV"}));
    EXPECT_EQ(split("b.KOV\0"sv), (Parts{"", "b.KOV"}));
    EXPECT_EQ(split("C:\\a\0b\0c\0"sv), (Parts{"C:\\a", "b", "c"}));
    EXPECT_EQ(split("C:\\a\0b\0c"sv), (Parts{"C:\\a", "b"}));
    EXPECT_EQ(split("C:\\a"), Parts{""});
#ifndef _WIN32
    EXPECT_EQ(split("/home/b.KOV\0"sv), (Parts{"/home", "b.KOV"}));
    EXPECT_EQ(split("/b.KOV\0"sv), (Parts{"/", "b.KOV"}));
#endif
}

TEST(CountChar, CountsWholeCharactersInSixteenBits) {
    EXPECT_EQ(CountChar("banana", U'a'), 3);
    EXPECT_EQ(CountChar("é€é", U'é'), 2);
    EXPECT_EQ(CountChar("a\0b\0"sv, U'\0'), 2);
    EXPECT_EQ(CountChar("é", char32_t{0xA9}), 0); // the last byte of é is no character
    EXPECT_EQ(CountChar(std::string(32767, 'x'), U'x'), 32767);
    EXPECT_FALSE(CountChar(std::string(32768, 'x'), U'x'));
}

TEST(Characters, AreCodePoints) {
    EXPECT_EQ(CharacterCount("aé€😀"), 4U);
    EXPECT_EQ(FirstCharacters("aé€😀", 2), "aé");
    EXPECT_EQ(FirstCharacters("aé", 2), "aé");
    EXPECT_EQ(LastCharacters("aé€😀", 2), "€😀");
    EXPECT_EQ(LastCharacters("aé", 9), "aé");
    EXPECT_EQ(Repeat("ab", 3), "ababab");
    EXPECT_EQ(UpperCase("r_é2z"), "R_é2Z");
    EXPECT_EQ(TrimBlanks("  a b\t "), "a b\t");
    EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(CellValue, KnowsEmptinessAndText) {
    EXPECT_TRUE(IsEmpty({}) && IsEmpty(""));
    EXPECT_FALSE(IsEmpty(" ") || IsEmpty(0.0));
    EXPECT_EQ(CellText({}) + CellText(" 1.50 ") + CellText(1.5), " 1.50 1.5");
}

} // namespace
} // namespace corvane
