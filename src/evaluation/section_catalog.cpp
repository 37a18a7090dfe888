#include "evaluation/section_catalog.h"

#include "analyses/balance_tables.h"
#include "analyses/concordance_table.h"
#include "analyses/deviation_analysis.h"
#include "analyses/difference_regressions.h"
#include "analyses/distance_analysis.h"
#include "analyses/distribution.h"
#include "analyses/diverse_measures.h"
#include "analyses/generalized_concordance_table.h"
#include "analyses/index_analysis.h"
#include "analyses/line_family_table.h"
#include "analyses/moment_table.h"
#include "analyses/msep.h"
#include "analyses/msep_bootstrap.h"
#include "analyses/parameter_tests.h"
#include "analyses/rank_analysis.h"
#include "analyses/regression.h"
#include "analyses/residual_analysis.h"
#include "analyses/residual_plots.h"
#include "analyses/robust_table.h"
#include "analyses/threshold_table.h"
#include "analyses/weighed_deviance.h"
#include "evaluation/references.h"
#include "plots/histogram.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

/// The Histo action; it has no text.
void RequestHistograms(RunState& run) {
    HistogramOutcome outcome = HistogramPlots(run.dataset);
    if (!outcome.message.empty())
        run.Tell(MessageStyle::Critical, outcome.message);
    for (HistogramRequest& request : outcome.requests)
        run.plots.emplace_back(std::move(request));
}

const SectionDefinition LineFamilySection{.frame = {"line_family", ""},
                                          .gate = {&Options::OLS_SLS},
                                          .progress = "OLS and SLS...",
                                          .write = WriteLineFamily};
const SectionDefinition DistributionSection{.frame = {"distribution", ""},
                                            .gate = {&Options::DISTRIBUTION_ANALYSIS},
                                            .progress = "Distribution...",
                                            .write = WriteDistribution};
const SectionDefinition MomentsSection{.frame = {"moments", ""},
                                       .gate = {&Options::MOMENT_STATISTIC},
                                       .progress = "Moments...",
                                       .write = WriteMoments};
const SectionDefinition RobustStatisticsSection{.frame = {"robust_statistics", ""},
                                                .gate = {&Options::ROBUST_STATISTICS},
                                                .progress = "Robust statistics...",
                                                .write = WriteRobustStatistics};
const SectionDefinition DiverseMeasuresSection{.frame = {"diverse_measures", ""},
                                               .gate = {&Options::DIVERSE_MEASURES},
                                               .progress = "Mean bias...",
                                               .write = WriteDiverseMeasures};
const SectionDefinition IndexAnalysisSection{.frame = {"index_analysis", ""},
                                             .gate = {&Options::INDEX_ANALYSIS},
                                             .progress = "Index...",
                                             .write = WriteIndexAnalysis};
const SectionDefinition ConcordanceSection{.frame = {"concordance", ""},
                                           .gate = {&Options::CONCORDANCE_TEST},
                                           .progress = "Concordance...",
                                           .write = WriteConcordance};
const SectionDefinition GeneralizedConcordanceSection{.frame = {"generalized_concordance", ""},
                                                      .gate = {&Options::GENERAL_CCC},
                                                      .progress = "Generalized CCC...",
                                                      .write = WriteGeneralizedConcordance};
const SectionDefinition RankAnalysisSection{.frame = {"rank_analysis", ""},
                                            .gate = {&Options::RANK_ANALYSIS},
                                            .progress = "Rank analysis...",
                                            .write = WriteRankAnalysis};
const SectionDefinition BalanceSection{.frame = {"balance", ""},
                                       .gate = {&Options::BALANCE_ANALYSIS},
                                       .progress = "Balance analysis...",
                                       .write = WriteBalance};
const SectionDefinition OrthogonalBalanceSection{.frame = {"orthogonal_balance", ""},
                                                 .gate = {&Options::ORTHOGONAL_BALANCE},
                                                 .progress = "Orthogonal balance...",
                                                 .write = WriteOrthogonalBalance};
const SectionDefinition MsepSection{.frame = {"msep", ""},
                                    .gate = {&Options::MSEP_ANALYSIS},
                                    .progress = "MSEP analysis...",
                                    .write = WriteMsep};
const SectionDefinition MsepBootstrapSection{.frame = {"msep_bootstrap", ""},
                                             .gate = {&Options::MSPE_BOOTSTRAP},
                                             .progress = "MSEP bootstrap...",
                                             .write = WriteMsepBootstrap};
const SectionDefinition KleijnenSection{.frame = {"kleijnen", ""},
                                        .gate = {&Options::KLEIJNEN_ANALYSIS, nullptr, true},
                                        .progress = "Kleijnen analysis...",
                                        .write = Kleijnen_Analysis};
const SectionDefinition BlandAltmanSection{.frame = {"bland_altman", ""},
                                           .gate = {&Options::BLAND_ALTMAN_ANALYSIS, nullptr, true},
                                           .progress = "Bland and Altman analysis...",
                                           .write = Bland_Altman_Analysis};
const SectionDefinition ThresholdTableSection{.frame = {"threshold_table", ""},
                                              .gate = {&Options::THRESHOLD_ANALYSIS},
                                              .progress = "Threshold analysis...",
                                              .write = WriteThresholdTable};
const SectionDefinition DistanceAnalysisSection{.frame = {"distance_analysis", ""},
                                                .gate = {&Options::DISTANCE_ANALYSIS},
                                                .progress = nullptr,
                                                .write = WriteDistanceAnalysis};
const SectionDefinition WeighedDevianceSection{.frame = {"weighed_deviance", ""},
                                               .gate = {&Options::WEIGHED_DEVIANCE},
                                               .progress = nullptr,
                                               .write = WriteWeighedDeviance};
const SectionDefinition DeviationAnalysisSection{.frame = {"deviation_analysis", ""},
                                                 .gate = {&Options::DEVIATION_ANALYSIS},
                                                 .progress = "Deviation analysis...",
                                                 .write = WriteDeviationAnalysis};
const SectionDefinition ResidualAnalysisSection{.frame = {"residual_analysis", ""},
                                                .gate = {&Options::RESIDUAL_ANALYSIS},
                                                .progress = "Residual analysis...",
                                                .write = WriteResidualAnalysis};
const SectionDefinition HistogramPlot{.frame = {"histogram_plot", ""},
                                      .gate = {&Options::HISTOGRAM_PLOT},
                                      .progress = nullptr,
                                      .write = RequestHistograms};
const SectionDefinition ResidualPlot{.frame = {"residual_plot", ""},
                                     .gate = {&Options::SHOW_RESIDUAL_PLOT, &Options::RESIDUAL_ANALYSIS},
                                     .progress = "Residual plot...",
                                     .write = RequestResidualPlot};
const SectionDefinition DeviationPlot{.frame = {"deviation_plot", ""},
                                      .gate = {&Options::SHOW_DEVIATION_PLOT, &Options::RESIDUAL_ANALYSIS},
                                      .progress = "Deviation plot...",
                                      .write = RequestDeviationPlot};
const SectionDefinition NormalPlot{.frame = {"normal_plot", ""},
                                   .gate = {&Options::SHOW_NORMAL_PLOT, &Options::RESIDUAL_ANALYSIS},
                                   .progress = "Normal plot...",
                                   .write = RequestNormalPlot};
const SectionDefinition ResidueRegressionPlots{.frame = {"residue_regression_plots", ""},
                                               .gate = {&Options::RESIDUAL_REGRESSION_PLOT},
                                               .progress = nullptr,
                                               .write = RequestResidueRegressionPlots};

const SectionDefinition* const catalog[] = {
    &RegressionSection,
    &ParameterTestsSection,
    &LineFamilySection,
    &DistributionSection,
    &MomentsSection,
    &RobustStatisticsSection,
    &DiverseMeasuresSection,
    &IndexAnalysisSection,
    &ConcordanceSection,
    &GeneralizedConcordanceSection,
    &RankAnalysisSection,
    &BalanceSection,
    &OrthogonalBalanceSection,
    &MsepSection,
    &MsepBootstrapSection,
    &KleijnenSection,
    &BlandAltmanSection,
    &ThresholdTableSection,
    &DistanceAnalysisSection,
    &WeighedDevianceSection,
    &DeviationAnalysisSection,
    &ResidualAnalysisSection,
    &HistogramPlot,
    &ReferencesSection,
    &ResidualPlot,
    &DeviationPlot,
    &NormalPlot,
    &ResidueRegressionPlots,
};

} // namespace

std::span<const SectionDefinition* const> SectionCatalog() {
    return catalog;
}

} // namespace corvane
