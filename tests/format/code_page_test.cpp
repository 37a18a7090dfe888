#include "core/format/code_page.h"

#include "core/format/console_text.h"

#include <gtest/gtest.h>

#include <random>

namespace corvane {
namespace {

TEST(CodePage, KnowsUtf8) {
    for (const char* text : {"", "abc", "é", "€", "😀", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(IsValidUtf8(text)) << text;
    // Stray, missing and cut tails, overlong forms, surrogates, numbers beyond the last character.
    for (const char* text :
         {"\x80", "a\xC3", "\xC3(", "\xE2\x82", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
          "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"})
        EXPECT_FALSE(IsValidUtf8(text)) << testing::PrintToString(text);
}

TEST(ForTerminal, WritesOutWhatSteersIt) {
    const std::string plain =
        "aé€😀\xC2\xA0\xE2\x80\xA9\xE2\x80\xAF\xE2\x81\xA5\xE2\x81\xAA"; // the neighbours
    EXPECT_EQ(ForTerminal(plain), plain);
    EXPECT_EQ(ForTerminal(std::string("\0\x1B\x1F\n\t\r\x7F", 7)), R"(\u0000\u001B\u001F\n\t\r\u007F)");
    EXPECT_EQ(ForTerminal("\xC2\x80\xC2\x9F\xE2\x80\xAA\xE2\x80\xAE\xE2\x81\xA6\xE2\x81\xA9"),
              R"(\u0080\u009F\u202A\u202E\u2066\u2069)");
    EXPECT_EQ(ForTerminal("\x9B\xE2\x80"), R"(\x9B\xE2\x80)"); // a lone C1 byte, a cut character
    EXPECT_EQ(ForTerminal("a\n\t", "\n"), "a\n\\t");
}

TEST(CodePage, MapsEveryByteToOneCharacter) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    const std::string text = FromWindows1252(bytes);
    EXPECT_TRUE(IsValidUtf8(text));
    EXPECT_EQ(ToWindows1252(text), bytes);
    EXPECT_EQ(FromWindows1252("\x80\x85\x8E\x96\x9F\xB5\xE9"), "€…Ž–Ÿµé");
    EXPECT_EQ(FromWindows1252("\x81"), "\xC2\x81");
    EXPECT_FALSE(ToWindows1252("Ω"));
    EXPECT_FALSE(ToWindows1252("\xC2\x80")); // the byte 80 is taken by the euro sign
    EXPECT_FALSE(ToWindows1252("\xE9"));
}

TEST(CodePage, TextFilesComeBackAsTheyWere) {
    EXPECT_EQ(EncodeText("5 µg, café"), "5 \xB5g, caf\xE9");
    EXPECT_EQ(EncodeText("Ω µ"), "Ω µ");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBFnaïve"), "naïve");
    EXPECT_EQ(DecodeText("na\xEFve"), "naïve");
    EXPECT_EQ(EncodeText("\xE9"), "\xE9");
    // "Ã©" would be C3 A9 in the code page, which reads as "é"; the next ones as a byte order mark.
    for (const char* text : {"Ã©", "ï»¿", "ï»¿a", "\uFEFF", "\uFEFFa", "", "plain"})
        EXPECT_EQ(DecodeText(EncodeText(text)), text);
    std::mt19937 random(3);
    for (int i = 0; i < 100000; ++i) {
        std::string text;
        for (int n = static_cast<int>(random() % 5); n >= 0; --n) {
            const std::uint32_t limit = random() % 8 == 0 ? 0x110000U : 0x100U;
            AppendUtf8(text, static_cast<char32_t>(random() % limit));
        }
        ASSERT_EQ(DecodeText(EncodeText(text)), text);
    }
}

} // namespace
} // namespace corvane
