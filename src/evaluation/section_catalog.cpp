#include "evaluation/section_catalog.h"

#include "analyses/balance_tables.h"
#include "analyses/distribution.h"
#include "analyses/index_analysis.h"
#include "analyses/line_family_table.h"
#include "analyses/moment_table.h"
#include "analyses/parameter_tests.h"
#include "analyses/regression.h"
#include "analyses/residual_analysis.h"
#include "analyses/residual_plots.h"
#include "analyses/robust_table.h"
#include "evaluation/references.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

constexpr CatalogEntry catalog[] = {
    {nullptr, nullptr, WriteRegression},
    {&Options::PARAMETER_TEST, "Parameters...", WriteParameterTests},
    {&Options::OLS_SLS, "OLS and SLS...", WriteLineFamily},
    {&Options::DISTRIBUTION_ANALYSIS, "Distribution...", WriteDistribution},
    {&Options::MOMENT_STATISTIC, "Moments...", WriteMoments},
    {&Options::ROBUST_STATISTICS, "Robust statistics...", WriteRobustStatistics},
    {&Options::INDEX_ANALYSIS, "Index...", WriteIndexAnalysis},
    {&Options::BALANCE_ANALYSIS, "Balance analysis...", WriteBalance},
    {&Options::ORTHOGONAL_BALANCE, "Orthogonal balance...", WriteOrthogonalBalance},
    {&Options::RESIDUAL_ANALYSIS, "Residual analysis...", WriteResidualAnalysis},
    {&Options::SHOW_LITERATURE, nullptr, WriteReferences},
    {&Options::SHOW_RESIDUAL_PLOT, "Residual plot...", RequestResidualPlot, &Options::RESIDUAL_ANALYSIS},
    {&Options::SHOW_DEVIATION_PLOT, "Deviation plot...", RequestDeviationPlot, &Options::RESIDUAL_ANALYSIS},
    {&Options::SHOW_NORMAL_PLOT, "Normal plot...", RequestNormalPlot, &Options::RESIDUAL_ANALYSIS},
    {&Options::RESIDUAL_REGRESSION_PLOT, nullptr, RequestResidueRegressionPlots},
};

} // namespace

std::span<const CatalogEntry> SectionCatalog() {
    return catalog;
}

} // namespace corvane
