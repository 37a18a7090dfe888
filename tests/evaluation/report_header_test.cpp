#include "evaluation/report_header.h"

#include "core/format/text_lists.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

const ClockTime time = testing::FixedClock().Now();

TEST(ReportHeader, CentresAShortName) {
    EXPECT_EQ(HeaderLine("d.KOV", time), "KOV v. 4.0.0" + std::string(37, ' ') + "[d.KOV]" +
                                             std::string(37, ' ') + "09-Mar-2026 07:05:04");
    const std::string of77 = Repeat("é", 77);
    EXPECT_EQ(HeaderLine(of77, time), "KOV v. 4.0.0 [" + of77 + "] 09-Mar-2026 07:05:04");
}

TEST(ReportHeader, CutsALongNameByCharacters) {
    for (const std::size_t length : {78U, 90U}) {
        const std::string name = Repeat("x", length - 73) + Repeat("é", 73);
        EXPECT_EQ(HeaderLine(name, time), "KOV v. 4.0.0 [..." + Repeat("é", 73) + "] 09-Mar-2026 07:05:04");
    }
}

TEST(ReportHeader, AnUnnamedDatasetIsUntitled) {
    EXPECT_EQ(HeaderLine("", time), "KOV v. 4.0.0" + std::string(36, ' ') + "[UNTITLED]" +
                                        std::string(36, ' ') + "09-Mar-2026 07:05:04");
}

} // namespace
} // namespace corvane
