#include "evaluation/section_catalog.h"

#include "analyses/distance_analysis.h"
#include "analyses/line_family_table.h"
#include "analyses/parameter_tests.h"
#include "analyses/rank_analysis.h"
#include "analyses/regression.h"
#include "analyses/threshold_table.h"
#include "evaluation/references.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

constexpr CatalogEntry catalog[] = {
    {nullptr, nullptr, WriteRegression},
    {&Options::PARAMETER_TEST, "Parameters...", WriteParameterTests},
    {&Options::OLS_SLS, "OLS and SLS...", WriteLineFamily},
    {&Options::RANK_ANALYSIS, "Rank analysis...", WriteRankAnalysis},
    {&Options::THRESHOLD_ANALYSIS, "Threshold analysis...", WriteThresholdTable},
    {&Options::DISTANCE_ANALYSIS, nullptr, WriteDistanceAnalysis},
    {&Options::SHOW_LITERATURE, nullptr, WriteReferences},
};

} // namespace

std::span<const CatalogEntry> SectionCatalog() {
    return catalog;
}

} // namespace corvane
