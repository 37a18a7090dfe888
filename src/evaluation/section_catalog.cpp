#include "evaluation/section_catalog.h"

#include "analyses/balance_tables.h"
#include "analyses/concordance_table.h"
#include "analyses/deviation_analysis.h"
#include "analyses/difference_regressions.h"
#include "analyses/distance_analysis.h"
#include "analyses/distribution.h"
#include "analyses/diverse_measures.h"
#include "analyses/generalized_concordance_table.h"
#include "analyses/histogram_plot.h"
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
#include "analyses/residue_regression.h"
#include "analyses/robust_table.h"
#include "analyses/threshold_table.h"
#include "analyses/weighed_deviance.h"
#include "evaluation/references.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

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
const SectionDefinition ReferencesSection{.frame = {"references", ""},
                                          .gate = {&Options::SHOW_LITERATURE},
                                          .progress = nullptr,
                                          .write = WriteReferences};

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
    &ResidueRegressionSection,
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
