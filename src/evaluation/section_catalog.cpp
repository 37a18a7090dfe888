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
