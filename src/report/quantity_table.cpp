#include "report/quantity.h"

#include "report/quantity_parts.h"

#include <unordered_map>
#include <vector>

namespace corvane {
namespace {

std::vector<Quantity> Joined() {
    std::vector<Quantity> table;
    for (const auto part :
         {RegressionQuantities(), LineFamilyQuantities(), SampleQuantities(), ErrorQuantities(),
          ConcordanceQuantities(), RankQuantities(), BalanceQuantities(), MsepQuantities(),
          DifferenceQuantities(), DeviationQuantities(), ResidualQuantities(), ComparisonQuantities()})
        table.insert(table.end(), part.begin(), part.end());
    return table;
}

std::unordered_map<std::string_view, const Quantity*> Indexed() {
    std::unordered_map<std::string_view, const Quantity*> index;
    for (const Quantity& quantity : QuantityTable())
        index.emplace(quantity.key, &quantity);
    return index;
}

} // namespace

std::span<const Quantity> QuantityTable() {
    static const std::vector<Quantity> table = Joined();
    return table;
}

const Quantity* FindQuantity(std::string_view key) {
    static const auto index = Indexed();
    const auto found = index.find(key);
    return found == index.end() ? nullptr : found->second;
}

} // namespace corvane
