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
        run.services.dialogs.ShowMessage(MessageStyle::Critical, outcome.message, "");
    for (HistogramRequest& request : outcome.requests)
        run.plots.emplace_back(std::move(request));
}

constexpr CatalogEntry catalog[] = {
    {nullptr, nullptr, WriteRegression},
    {&Options::PARAMETER_TEST, "Parameters...", WriteParameterTests},
    {&Options::OLS_SLS, "OLS and SLS...", WriteLineFamily},
    {&Options::DISTRIBUTION_ANALYSIS, "Distribution...", WriteDistribution},
    {&Options::MOMENT_STATISTIC, "Moments...", WriteMoments},
    {&Options::ROBUST_STATISTICS, "Robust statistics...", WriteRobustStatistics},
    {&Options::DIVERSE_MEASURES, "Mean bias...", WriteDiverseMeasures},
    {&Options::INDEX_ANALYSIS, "Index...", WriteIndexAnalysis},
    {&Options::CONCORDANCE_TEST, "Concordance...", WriteConcordance},
    {&Options::GENERAL_CCC, "Generalized CCC...", WriteGeneralizedConcordance},
    {&Options::RANK_ANALYSIS, "Rank analysis...", WriteRankAnalysis},
    {&Options::BALANCE_ANALYSIS, "Balance analysis...", WriteBalance},
    {&Options::ORTHOGONAL_BALANCE, "Orthogonal balance...", WriteOrthogonalBalance},
    {&Options::MSEP_ANALYSIS, "MSEP analysis...", WriteMsep},
    {&Options::MSPE_BOOTSTRAP, "MSEP bootstrap...", WriteMsepBootstrap},
    {&Options::KLEIJNEN_ANALYSIS, "Kleijnen analysis...", Kleijnen_Analysis, true},
    {&Options::BLAND_ALTMAN_ANALYSIS, "Bland and Altman analysis...", Bland_Altman_Analysis, true},
    {&Options::THRESHOLD_ANALYSIS, "Threshold analysis...", WriteThresholdTable},
    {&Options::DISTANCE_ANALYSIS, nullptr, WriteDistanceAnalysis},
    {&Options::WEIGHED_DEVIANCE, nullptr, WriteWeighedDeviance},
    {&Options::DEVIATION_ANALYSIS, "Deviation analysis...", WriteDeviationAnalysis},
    {&Options::RESIDUAL_ANALYSIS, "Residual analysis...", WriteResidualAnalysis},
    {&Options::HISTOGRAM_PLOT, nullptr, RequestHistograms},
    {&Options::SHOW_LITERATURE, nullptr, WriteReferences},
    {&Options::SHOW_RESIDUAL_PLOT, "Residual plot...", RequestResidualPlot, false,
     &Options::RESIDUAL_ANALYSIS},
    {&Options::SHOW_DEVIATION_PLOT, "Deviation plot...", RequestDeviationPlot, false,
     &Options::RESIDUAL_ANALYSIS},
    {&Options::SHOW_NORMAL_PLOT, "Normal plot...", RequestNormalPlot, false, &Options::RESIDUAL_ANALYSIS},
    {&Options::RESIDUAL_REGRESSION_PLOT, nullptr, RequestResidueRegressionPlots},
};

} // namespace

std::span<const CatalogEntry> SectionCatalog() {
    return catalog;
}

} // namespace corvane
