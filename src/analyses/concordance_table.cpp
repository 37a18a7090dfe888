#include "analyses/concordance_table.h"

#include "analyses/prediction_comment.h"
#include "core/format/text_lists.h"
#include "stats/concordance.h"

#include <string>

namespace corvane {
namespace {

struct Value {
    const char* name;
    double number;
};

/// The lines of one run's table.
class Table {
public:
    Table(RunState& owner, ReportSection& lines) : run(owner), section(lines) {}

    void Heading(const std::string& text) {
        section.Line(text);
        section.Line(std::string(CharacterCount(text), '-'));
    }

    void Single(const char* label, const Value& value, const char* comment = "") {
        run.Statement([&] { section.Line(label, Field(value), comment); });
    }

    void Estimate(const char* label, const Value& value, const Value& error) {
        run.Statement([&] { section.Line(label, Field(value), " ± ", Field(error)); });
    }

    void Test(const char* label, const Value& Z, const Value& P) {
        run.Statement([&] { section.Line(label, Field(Z), " (", FP(10, 5, P.number).Named(P.name), " )"); });
    }

    void Limits(const char* label, const Value& lower, const Value& upper) {
        run.Statement(
            [&] { section.Line(label, "[", Field(lower).Trimmed(), ", ", Field(upper).Trimmed(), "]"); });
    }

    void TransformationComment() {
        if (run.Comments())
            section.Line("!!  Inverse hyperbolic tangent transformation to improve normal approximation !!");
    }

private:
    static ReportField Field(const Value& value) { return F(10, 5, value.number).Named(value.name); }

    RunState& run;
    ReportSection& section;
};

} // namespace

void WriteConcordance(RunState& run) {
    const stats::PairSummary& pairs = run.pairs;
    const stats::Concordance c = stats::ConcordanceStatistics(
        {run.arrays.Count(), run.pearson.r, pairs.MeanDiff, pairs.SDX, pairs.SDY, pairs.SDDiff});
    ReportSection& section =
        run.report.BeginSection("concordance", "CONCORDANCE CORRELATION COEFFICIENT (Lin, 1989; Gromeive et "
                                               "al., 1991; Nickerson, 1997; Liao, 2003)");
    Table table(run, section);

    table.Heading("Lin (1998)"); // the title dates the same estimator 1989
    table.Single("Scale shift (v)      : ", {"v", c.v});
    table.Single("Location shift (u)   : ", {"u", c.u}, PredictionComment(run, c.u));
    table.Single("Bias correction (Cb) : ", {"Cb", c.Cb});
    table.Estimate("rc ± SE rc           : ", {"rc", c.rc}, {"SErc", c.SErc});
    table.Test("Z-value (P-Value)    : ", {"Z", c.Z}, {"P", c.P});
    table.Limits("Lower - Upper 95% CI : ", {"Lower", c.Lower}, {"Upper", c.Upper});
    table.TransformationComment();
    table.Estimate("Transformed rc ± SE rc              : ", {"TRc", c.TRc}, {"SETRc", c.SETRc});
    table.Test("Transformed Z-value (P-Value)       : ", {"TZ", c.TZ}, {"TP", c.TP});
    table.Limits("Transformed Lower - Upper 95% CI    : ", {"TLower", c.TLower}, {"TUpper", c.TUpper});
    table.Limits("Un-transformed Lower - Upper 95% CI : ", {"ULower", c.ULower}, {"UUpper", c.UUpper});
    section.Line();

    table.Heading("Intraclass Correlation Coefficient (ICC)");
    table.Single("rc : ", {"ICC", c.ICC});
    section.Line();

    table.Heading("Liao (2003)");
    table.Single("Ar (~ Cb)              : ", {"Ar", c.Ar});
    table.Estimate("Gr ± SE Gr (~ rc)      : ", {"Gr", c.Gr}, {"SEGr", c.SEGr});
    table.Test("Z-value (P-Value)      : ", {"GZ", c.GZ}, {"GP", c.GP});
    table.Limits("Lower - Upper 95% CI   : ", {"GLower", c.GLower}, {"GUpper", c.GUpper});
    table.TransformationComment();
    table.Estimate("Transformed Gr ± SE Gr              : ", {"TGr", c.TGr}, {"SETGr", c.SETGr});
    table.Test("Transformed Z-value (P-Value)       : ", {"TGZ", c.TGZ}, {"TGP", c.TGP});
    table.Limits("Transformed Lower - Upper 95% CI    : ", {"E1", c.E1}, {"E3", c.E3});
    table.Limits("Un-transformed Lower - Upper 95% CI : ", {"E2", c.E2}, {"E4", c.E4});
}

} // namespace corvane
