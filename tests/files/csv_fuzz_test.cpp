#include "files/csv_import.h"
#include "files/csv_layout.h"
#include "support/fakes.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

// Tables made by chance, of the same chance in every run: for half a second, or for CORVANE_FUZZ_SECONDS.
// fuzz/csv_import_fuzz.cpp has the broken tables.

namespace corvane {
namespace {

class Fuzz : public ::testing::Test {
protected:
    std::size_t Below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
    }
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    template<class List>
    auto OneOf(const List& list) {
        return *(std::begin(list) + static_cast<std::ptrdiff_t>(Below(std::size(list))));
    }

    bool TimeIsLeft() const {
        const char* const seconds = std::getenv("CORVANE_FUZZ_SECONDS");
        return std::chrono::steady_clock::now() - start <
               std::chrono::duration<double>(seconds ? std::atof(seconds) : 0.5);
    }

    CsvOutcome Import(const std::string& text, const CsvOptions& options, Dataset& dataset) {
        ++tables;
        files.files["t.csv"] = text;
        SessionState session;
        return ImportCsv("t.csv", options, dataset, session, files);
    }

    void TearDown() override { RecordProperty("tables", std::to_string(tables)); }

    std::mt19937_64 random{20260309};
    testing::MemoryFiles files;

private:
    std::size_t tables = 0;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

/// How somebody's program writes numbers.
struct Custom {
    char separator, decimal;
    std::string groups; ///< Between thousands, or nothing.
    enum { Never, WhereNeeded, Always } quotes;

    bool Plain() const { return groups.empty() && (decimal == '.' || separator != ','); }
};

std::string Written(std::uint64_t thousandths, int decimals, const Custom& custom) {
    std::string whole = std::to_string(thousandths / 1000);
    for (std::size_t place = whole.size(); !custom.groups.empty() && place > 3; place -= 3)
        whole.insert(place - 3, custom.groups);
    if (decimals > 0)
        whole += custom.decimal +
                 std::to_string(1000 + thousandths % 1000).substr(1, static_cast<std::size_t>(decimals));
    const bool quoted =
        custom.quotes == Custom::Always ||
        (custom.quotes == Custom::WhereNeeded && whole.find(custom.separator) != std::string::npos);
    return quoted ? "\"" + whole + "\"" : whole;
}

TEST_F(Fuzz, NoCustomOfWritingNumbersIsMistakenForAnotherInSilence) {
    std::size_t plain = 0, plainAccepted = 0;
    do {
        Custom custom{OneOf(std::string_view(",;\t")), OneOf(std::string_view(".,")), "",
                      OneOf(std::vector{Custom::Never, Custom::WhereNeeded, Custom::Always})};
        if (OneIn(2))
            custom.groups = OneOf(std::vector<std::string>{custom.decimal == '.' ? "," : ".", " ", "'"});
        // Where commas separate the columns, a point is decimal by definition.
        if (custom.separator == ',' && custom.groups == ".")
            continue;
        const int fixedDecimals = static_cast<int>(Below(5)) - 1;
        const std::uint64_t largest =
            OneOf(std::vector<std::uint64_t>{9'999, 999'999, 999'999'999, 99'999'999'999});
        // Numbers torn by their own commas may be more columns than meant, so nothing else must add some.
        const bool torn = custom.separator == ',' && custom.quotes == Custom::Never &&
                          (custom.decimal == ',' || custom.groups == ",");
        // Names of two or three columns that may hold other separators, and a column between that may, too.
        const bool between = !torn && OneIn(3), header = between || OneIn(2),
                   decorated = header && !torn && OneIn(2);
        const auto field = [&](const std::string& content) {
            return content.find(custom.separator) == std::string::npos ? content : '"' + content + '"';
        };
        const auto line = [&](const std::vector<std::string>& fields) {
            std::string joined;
            for (const std::string& each : fields)
                joined += (&each == fields.data() ? "" : std::string(1, custom.separator)) + each;
            return joined + "\n";
        };
        const auto name = [&](const char* start) {
            return field(start + OneOf(std::vector<std::string>{"", ", mm", "; mm", " (a, b)", "\tmm"}));
        };
        std::vector<std::string> names{decorated ? name("X") : "X", decorated ? name("Y") : "Y"};
        if (between)
            names.insert(names.begin() + 1, "id");
        if (header && !torn && OneIn(6))
            names.emplace_back();
        std::string text = header ? line(names) : "";
        std::vector<std::string> expected;
        const std::size_t rows = 2 + Below(6), unevenRow = !torn && OneIn(3) ? Below(rows - 1) + 1 : rows;
        bool mustFail = false;
        for (std::size_t row = 0; row < rows; ++row) {
            std::vector<std::string> fields;
            for (int cell = 0; cell < 2; ++cell) {
                const int decimals = fixedDecimals >= 0 ? fixedDecimals : static_cast<int>(Below(4));
                const std::uint64_t value = Below(largest);
                const bool missing = OneIn(12);
                fields.push_back(missing ? OneOf(std::vector<std::string>{"", "NA"})
                                         : Written(value, decimals, custom));
                expected.push_back(missing ? "" : Written(value, decimals, {';', '.', "", Custom::Never}));
            }
            if (between)
                fields.insert(fields.begin() + 1,
                              field(OneOf(std::vector<std::string>{"7", "8", "A", "a b", "a, b", "a;b"})));
            if (row == unevenRow) {
                // After Y, before it, or instead of it.
                switch (Below(3)) {
                case 0:
                    fields.push_back(OneOf(std::vector<std::string>{"", "note", "5"}));
                    break;
                case 1:
                    fields.insert(fields.end() - 1, "note");
                    expected.back() = "note";
                    break;
                default:
                    fields.pop_back();
                    expected.back() = "";
                    if (fields[0].empty()) // a blank line is no row
                        fields[0] = "NA";
                }
            }
            mustFail = mustFail || fields.size() > names.size();
            text += line(fields);
        }
        CsvOptions options;
        if (decorated || between || names.size() != 2) {
            options.columns[ColumnX] = "1";
            options.columns[ColumnY] = between ? "3" : "2";
        }
        Dataset dataset;
        const CsvOutcome outcome = Import(text, options, dataset);
        const bool silent =
            outcome.done && std::ranges::none_of(outcome.warnings, [](const CsvRemark& warning) {
                return warning.text.find("no number") != std::string::npos;
            });
        const bool isPlain = custom.Plain() && unevenRow == rows;
        plain += isPlain;
        if (!silent)
            continue;
        plainAccepted += isPlain;
        SCOPED_TRACE(text);
        ASSERT_FALSE(mustFail);
        ASSERT_EQ(dataset.cells.RowCount(), static_cast<std::int32_t>(rows));
        for (std::size_t cell = 0; cell < 2 * rows; ++cell)
            ASSERT_EQ(CellText(dataset.cells.At(cell % 2 == 0 ? ColumnX : ColumnY,
                                                static_cast<std::int32_t>(cell / 2) + 1)),
                      expected[cell]);
    } while (TimeIsLeft());
    // Only numbers like 1.234, with nothing beside them that settles their mark, are refused.
    EXPECT_GT(plainAccepted, plain * 3 / 4);
}

} // namespace
} // namespace corvane
