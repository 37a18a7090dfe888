#include "evaluation/section_catalog.h"

#include "analyses/balance_tables.h"
#include "analyses/line_family_table.h"
#include "analyses/parameter_tests.h"
#include "analyses/regression.h"
#include "evaluation/references.h"

namespace corvane {
namespace {

using Options = AnalysisOptions;

constexpr CatalogEntry catalog[] = {
    {nullptr, nullptr, WriteRegression},
    {&Options::PARAMETER_TEST, "Parameters...", WriteParameterTests},
    {&Options::OLS_SLS, "OLS and SLS...", WriteLineFamily},
    {&Options::BALANCE_ANALYSIS, "Balance analysis...", WriteBalance},
    {&Options::ORTHOGONAL_BALANCE, "Orthogonal balance...", WriteOrthogonalBalance},
    {&Options::SHOW_LITERATURE, nullptr, WriteReferences},
};

} // namespace

std::span<const CatalogEntry> SectionCatalog() {
    return catalog;
}

} // namespace corvane
