#include "analyses/concordance_table.h"

#include "analyses/prediction_comment.h"
#include "stats/concordance.h"

namespace corvane {
namespace {

constexpr Place places[] = {
    {"v", "concordance.scale_shift", "Scale shift (v)      : "},
    {"u", "concordance.location_shift", "Location shift (u)   : "},
    {"Cb", "concordance.cb", "Bias correction (Cb) : "},
    {"rc", "concordance.lin.rc", "rc ± SE rc           : "},
    {"SErc", "concordance.lin.rc.se", " ± "},
    {"Z", "concordance.z", "Z-value (P-Value)    : "},
    {"P", "concordance.p", " (", 10, 5, Look::Probability},
    {"Lower", "concordance.limits", "Lower - Upper 95% CI : [", 10, 5, Look::Trimmed},
    {"Upper", "concordance.limits", ", ", 10, 5, Look::Trimmed},
    {"TRc", "concordance.transformed", "Transformed rc ± SE rc              : "},
    {"SETRc", "concordance.transformed.se", " ± "},
    {"TZ", "concordance.transformed.z", "Transformed Z-value (P-Value)       : "},
    {"TP", "concordance.transformed.p", " (", 10, 5, Look::Probability},
    {"TLower", "concordance.transformed.limits", "Transformed Lower - Upper 95% CI    : [", 10, 5,
     Look::Trimmed},
    {"TUpper", "concordance.transformed.limits", ", ", 10, 5, Look::Trimmed},
    {"ULower", "concordance.untransformed.limits", "Un-transformed Lower - Upper 95% CI : [", 10, 5,
     Look::Trimmed},
    {"UUpper", "concordance.untransformed.limits", ", ", 10, 5, Look::Trimmed},
    {"ICC", "concordance.icc", "rc : "},
    {"Ar", "concordance.liao.ar", "Ar (~ Cb)              : "},
    {"Gr", "concordance.liao.gr", "Gr ± SE Gr (~ rc)      : "},
    {"SEGr", "concordance.liao.gr.se", " ± "},
    {"GZ", "concordance.z", "Z-value (P-Value)      : "},
    {"GP", "concordance.p", " (", 10, 5, Look::Probability},
    {"GLower", "concordance.limits", "Lower - Upper 95% CI   : [", 10, 5, Look::Trimmed},
    {"GUpper", "concordance.limits", ", ", 10, 5, Look::Trimmed},
    {"TGr", "concordance.transformed", "Transformed Gr ± SE Gr              : "},
    {"SETGr", "concordance.transformed.se", " ± "},
    {"TGZ", "concordance.transformed.z", "Transformed Z-value (P-Value)       : "},
    {"TGP", "concordance.transformed.p", " (", 10, 5, Look::Probability},
    {"E1", "concordance.transformed.limits", "Transformed Lower - Upper 95% CI    : [", 10, 5, Look::Trimmed},
    {"E3", "concordance.transformed.limits", ", ", 10, 5, Look::Trimmed},
    {"E2", "concordance.untransformed.limits", "Un-transformed Lower - Upper 95% CI : [", 10, 5,
     Look::Trimmed},
    {"E4", "concordance.untransformed.limits", ", ", 10, 5, Look::Trimmed},
};

void WriteTransformationComment(const RunState& run, ReportSection& section) {
    if (run.Comments())
        section.Note("!!  Inverse hyperbolic tangent transformation to improve normal approximation !!");
}

void WriteLin(RunState& run, ReportSection& section, const stats::Concordance& c) {
    const auto row = [&](auto&& write) { run.Statement(write); };
    section.Heading("Lin (1998)"); // the title dates the same estimator 1989
    row([&] { section.Row({{"v", c.v}}); });
    row([&] { section.Row({{"u", c.u}, PredictionComment(run, c.u)}); });
    row([&] { section.Row({{"Cb", c.Cb}}); });
    row([&] { section.Row({RowItem("rc", c.rc).Between(c.Lower, c.Upper), {"SErc", c.SErc}}); });
    row([&] { section.Row({{"Z", c.Z}, {"P", c.P}, " )"}); });
    row([&] { section.Row({{"Lower", c.Lower}, {"Upper", c.Upper}, "]"}); });
    WriteTransformationComment(run, section);
    row([&] { section.Row({RowItem("TRc", c.TRc).Between(c.TLower, c.TUpper), {"SETRc", c.SETRc}}); });
    row([&] { section.Row({{"TZ", c.TZ}, {"TP", c.TP}, " )"}); });
    row([&] { section.Row({{"TLower", c.TLower}, {"TUpper", c.TUpper}, "]"}); });
    row([&] { section.Row({{"ULower", c.ULower}, {"UUpper", c.UUpper}, "]"}); });
}

void WriteLiao(RunState& run, ReportSection& section, const stats::Concordance& c) {
    const auto row = [&](auto&& write) { run.Statement(write); };
    section.Heading("Liao (2003)");
    row([&] { section.Row({{"Ar", c.Ar}}); });
    row([&] { section.Row({RowItem("Gr", c.Gr).Between(c.GLower, c.GUpper), {"SEGr", c.SEGr}}); });
    row([&] { section.Row({{"GZ", c.GZ}, {"GP", c.GP}, " )"}); });
    row([&] { section.Row({{"GLower", c.GLower}, {"GUpper", c.GUpper}, "]"}); });
    WriteTransformationComment(run, section);
    row([&] { section.Row({RowItem("TGr", c.TGr).Between(c.E1, c.E3), {"SETGr", c.SETGr}}); });
    row([&] { section.Row({{"TGZ", c.TGZ}, {"TGP", c.TGP}, " )"}); });
    row([&] { section.Row({{"E1", c.E1}, {"E3", c.E3}, "]"}); });
    row([&] { section.Row({{"E2", c.E2}, {"E4", c.E4}, "]"}); });
}

void Write(RunState& run) {
    const stats::PairSummary& pairs = run.pairs;
    const stats::Concordance c = stats::ConcordanceStatistics(
        {run.arrays.Count(), run.pearson.r, pairs.MeanDiff, pairs.SDX, pairs.SDY, pairs.SDDiff});
    ReportSection& section = run.report.BeginSection(ConcordanceSection.frame);
    WriteLin(run, section, c);
    section.Blank();
    section.Heading("Intraclass Correlation Coefficient (ICC)");
    run.Statement([&] { section.Row({{"ICC", c.ICC}}); });
    section.Blank();
    WriteLiao(run, section, c);
}

} // namespace

const SectionDefinition ConcordanceSection{
    .frame = {"concordance",
              "CONCORDANCE CORRELATION COEFFICIENT (Lin, 1989; Gromeive et al., 1991; Nickerson, 1997; Liao, "
              "2003)",
              {places}},
    .gate = {&AnalysisOptions::CONCORDANCE_TEST},
    .progress = "Concordance...",
    .meaning = "How closely the pairs lie to the line of equality, X = Y, rather than to any line.",
    .papers = "lin1989; lin2000; gromeive1991; nickerson1997; liao2003",
    .write = Write,
};

} // namespace corvane
