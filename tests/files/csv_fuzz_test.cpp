#include "core/format/numbers.h"
#include "files/csv_import.h"
#include "files/csv_layout.h"
#include "files/csv_writer.h"
#include "support/fakes.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

// Tables made by chance, of the same chance in every run: for a second, or for CORVANE_FUZZ_SECONDS.

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
        // Two tests share the time.
        return std::chrono::steady_clock::now() - start <
               std::chrono::duration<double>((seconds ? std::atof(seconds) : 1.0) / 2);
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

constexpr const char* seeds[] = {
    "X,Y\n1,2\n3.5,4\n\"5\",6e2\n",
    "id;x;sd_x;Y;SDY;Exclude\nA;1,5;0,1;2,25;0,2;y\nB;3;0,1;4,75;;\n\"C;\"\"c\"\"\";5,125;0,1;NA;0,2;n\n",
    "\xEF\xBB\xBF"
    "1.5\t2.5\r\n3\t4\r\n1.234\t5.678\r\n",
    "X,SD X,Y,SD Y,Rank X,Rank Y,Exclude\r\n1.5,,2,,1,2,\"Y\"\r\n\" 2\",\"NA\",\"a\r\nb\",\"\"\"\",,,\r\n",
    "name,\"X\",Y\n\"two\nlines\",\"1,234\",2\nM\xFCller,1.234.567,\"1,234.5\"\n",
    "1,5;2,5\n1.234,5;NaN\n2020-01-02;12.05.2020\n",
    "sep=;\nX, mm;Rank X;Obs. [kg]\nmm;;kg\n1,5;.;2,5\n\"\r\";1;7\n",
};
constexpr const char* tokens[] = {",", ";",       "\t",    "\"",    "\"\"", "\r\n",    "\n",     "\r",
                                  ".", ",5",      "1,234", "1.234", "1.5",  "NA",      "nan",    "X",
                                  "Y", "Exclude", " ",     "-",     "e9",   "e999",    "\xFF",   "\xC2",
                                  "0", "\n\n",    "\"\n",  ";;",    ",,",   "1.234,5", "\"1,5\""};

TEST_F(Fuzz, AMutatedTableIsRefusedOrAccountsForEveryCell) {
    std::size_t accepted = 0;
    do {
        std::string text = OneOf(seeds);
        for (std::size_t change = Below(8); change-- > 0;) {
            const std::size_t at = Below(text.size() + 1),
                              length = Below(std::min<std::size_t>(text.size() - at, 30) + 1);
            switch (Below(5)) {
            case 0:
                text.erase(at, length);
                break;
            case 1:
                text.insert(at, text.substr(at, length));
                break;
            case 2:
                text.insert(at, text.substr(Below(text.size() + 1)));
                break;
            case 3:
                text.replace(at, length, 1, static_cast<char>(Below(256)));
                break;
            default:
                text.insert(at, OneOf(tokens));
            }
        }
        CsvOptions options;
        if (OneIn(4))
            options.decimal = OneOf(std::string_view(".,"));
        if (OneIn(6))
            options.separator = OneOf(std::string_view(",;\t"));
        if (OneIn(6))
            options.header = OneIn(2);
        if (OneIn(3))
            for (const int column : {ColumnX, ColumnY, ColumnExclude})
                options.columns[static_cast<std::size_t>(column)] =
                    OneOf(std::vector<std::string>{"1", "2", "3", "x", "Y", ""});

        options.everyRemark = OneIn(2);

        Dataset dataset;
        const CsvOutcome outcome = Import(text, options, dataset);
        SCOPED_TRACE(text);
        if (!outcome.done) {
            ASSERT_FALSE(outcome.fault.text.empty());
            ASSERT_LT(outcome.fault.text.size(), 800U);
            ASSERT_LE(outcome.fault.line, static_cast<std::size_t>(std::ranges::count_if(
                                              text, [](char c) { return c == '\r' || c == '\n'; })) +
                                              1);
            ASSERT_EQ(dataset.cells.LastFilledRow(), 0);
            ASSERT_EQ(dataset.options.N, Dataset{}.options.N);
            continue;
        }
        ++accepted;
        std::size_t told = 0, notNumbers = 0;
        for (const CsvRemark& warning : outcome.warnings) {
            told += warning.text.ends_with("is no number; a run takes it for 0");
            if (warning.text.find("cells are no numbers in all") != std::string::npos)
                told = static_cast<std::size_t>(LeadingNumber(warning.text));
        }
        Dataset again;
        CsvOutcome back = Import(CsvText(dataset.cells), {}, again);
        if (back.fault.text.find("to be text, with --decimal .") != std::string::npos) {
            options = {};
            options.decimal = '.';
            back = Import(CsvText(dataset.cells), options, again);
        }
        ASSERT_TRUE(back.done);
        ASSERT_EQ(again.cells.RowCount(), dataset.cells.RowCount());
        for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row)
            for (int column = ColumnX; column <= LastColumn; ++column) {
                const CellView cell = dataset.cells.At(column, row);
                notNumbers += column < ColumnRankX && !IsEmpty(cell) && !CellNumber(cell);
                ASSERT_EQ(CellText(again.cells.At(column, row)), CellText(cell));
            }
        ASSERT_EQ(told, notNumbers);
    } while (TimeIsLeft());
    EXPECT_GT(accepted, 0U);
}

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
        // Where commas part the columns, a point is decimal by definition.
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
                // Behind Y, before it, or instead of it.
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
