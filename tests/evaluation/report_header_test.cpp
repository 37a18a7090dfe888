#include "evaluation/report_header.h"

#include "core/format/text_lists.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

const ClockTime time = testing::FixedClock().Now();

TEST(ReportHeader, CentresTheNameAndCutsALongOneByCharacters) {
    const auto line = [](const std::string& before, const std::string& name, const std::string& behind) {
        return "KOV v. 4.0.0" + before + "[" + name + "]" + behind + "09-Mar-2026 07:05:04";
    };
    const std::string of36(36, ' '), of37(37, ' '), last73 = Repeat("é", 73), of77 = Repeat("é", 77);
    EXPECT_EQ(HeaderLine("d.KOV", time), line(of37, "d.KOV", of37));
    EXPECT_EQ(HeaderLine("", time), line(of36, "UNTITLED", of36));
    EXPECT_EQ(HeaderLine(of77, time), line(" ", of77, " "));
    for (const std::size_t cut : {5U, 17U})
        EXPECT_EQ(HeaderLine(Repeat("x", cut) + last73, time), line(" ", "..." + last73, " "));
}

} // namespace
} // namespace corvane
