#include "app/json_report.h"
#include "comparison/comparison_report.h"
#include "fuzzing.h"
#include "support/fakes.h"

// The input: a byte of which bits 0 and 1 are how many models there are beside two, bit 2 asks for
// references, bit 3 lets settings follow and bit 4 a larger N in one file, bit 5 another Y in one row, bit 6
// a model without its tick; the number of rows beside three; then for each row Y and the predictions of the
// models
// (`Bytes::Cell`).

namespace corvane {
namespace {

using fuzzing::Bytes;
using fuzzing::Require;

constexpr const char* settingTexts[] = {"12", "9", "4",  "0",  "-1", "10",  "20",    "21",
                                        "6",  "5", "15", "99", "",   "abc", "32767", "1E+9"};

/// A file of the memory and its row in the list.
std::string PathOf(std::size_t model) {
    return "/models/" + std::to_string(model + 1) + ".KOV";
}

struct Input {
    ComparisonList list;
    testing::MemoryFiles files;
    bool references = false;
};

std::string Quoted(const std::string& text) {
    return text.find('"') == std::string::npos ? '"' + text + '"' : "\"\"\"q\"\"\"";
}

Input ReadInput(Bytes bytes) {
    Input input;
    const std::uint8_t first = bytes.Next();
    const std::size_t models = 2 + first % 4, rows = 3 + bytes.Below(24);
    input.references = first & 0x04;
    ComparisonSettings& settings = input.list.settings;
    if (first & 0x08)
        for (std::string* setting :
             {&settings.DigitsLong, &settings.DigitsShort, &settings.DecimalsStatistics,
              &settings.DecimalsProbability, &settings.DecimalsCorrelations})
            *setting = bytes.OneOf(settingTexts);
    const std::size_t longer = first & 0x10 ? bytes.Below(models) : models;
    const std::size_t differs = first & 0x20 ? bytes.Below(rows) : rows;
    const std::size_t unticked = first & 0x40 ? bytes.Below(models) : models;

    std::vector<std::string> texts(models), paths;
    for (std::size_t model = 0; model < models; ++model) {
        texts[model] = "4,0,0\nN=" + std::to_string(model == longer ? rows + 1 : rows) + "\nDATA:\n";
        paths.push_back(PathOf(model));
    }
    for (std::size_t row = 0; row < rows; ++row) {
        const std::string observed = Quoted(bytes.Cell());
        for (std::string& text : texts)
            text += Quoted(bytes.Cell()) + ",," +
                    (row == differs && &text == &texts.back() ? "1" : observed) + ",,,,\n";
    }
    for (std::size_t model = 0; model < models; ++model)
        input.files.files[paths[model]] = texts[model] + (bytes.Bit() ? "1,,2,,,,\n" : "");
    input.list.Add(paths);
    for (std::size_t model = 0; model < models; ++model)
        input.list.Select(model, model != unticked);
    return input;
}

} // namespace
} // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    Input input = ReadInput({data, size});
    const auto compare = [&] {
        testing::RecordingProgress progress;
        ComparisonResult compared = CompareModels(
            {input.list.Rows(), input.list.settings, input.references, testing::FixedClock().Now()},
            input.files, progress);
        input.list.settings = compared.settings;
        return compared;
    };
    const ComparisonResult result = compare();
    for (const std::string& warning : result.warnings)
        Require(!warning.empty(), "a warning has words");
    if (!result.finished) {
        Require(!result.fault.empty() || !result.messages.empty(),
                "a comparison without a report has a reason");
        return 0;
    }
    fuzzing::RequireFinite(result.report);
    Require(result.models.size() >= 2, "a report compares two models at least");
    Require(!JsonReport({result, input.references, "", {}}).empty(),
            "every number has a name of its own"); // throws otherwise
    // The settings were set right the first time.
    Require(compare().report.Text() == result.report.Text(), "the same comparison has the same report");
    return 0;
}
