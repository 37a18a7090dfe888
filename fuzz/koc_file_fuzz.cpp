#include "comparison/comparison_list.h"
#include "core/format/code_page.h"
#include "fuzzing.h"
#include "support/fakes.h"

// The input is a comparison file. Its rows stay if their files exist, as /dev/null does.

namespace corvane {
namespace {

using fuzzing::Require;

KocOutcome Open(const std::string& bytes, ComparisonList& list) {
    testing::MemoryFiles files;
    files.files["l.KOC"] = bytes;
    return list.Open("l.KOC", files);
}

} // namespace
} // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    const std::string text(reinterpret_cast<const char*>(data), size);
    ComparisonList list, again;
    const KocOutcome outcome = Open(text, list);
    Require(outcome.line <= fuzzing::LineCount(text) + 1, "a reason names a line of the file",
            outcome.Error());
    Require(outcome.Complete() == (outcome.line == 0), "what ends early says why and where", outcome.Error());
    for (const std::string& leftOut : outcome.leftOut)
        Require(leftOut.starts_with("l.KOC:"), "a row that is left out has its place", leftOut);

    const std::string written = KocFileText(list.settings, list.Rows());
    const KocOutcome back = Open(EncodeText(written), again);
    Require(back.Complete() && back.leftOut.empty(), "a written file is read to its end", back.reason);
    Require(KocFileText(again.settings, again.Rows()) == written, "what was read comes back", written);
    return 0;
}
