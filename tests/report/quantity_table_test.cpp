#include "report/papers.h"
#include "report/quantity.h"
#include "support/golden.h"

#include <algorithm>
#include <regex>
#include <set>
#include <vector>

namespace corvane {
namespace {

using testing::ReadBytes;
using Texts = std::vector<std::string>;

Texts ItemsOf(std::string_view list) {
    Texts items;
    for (std::size_t next = 0; !list.empty(); list.remove_prefix(next)) {
        const std::size_t end = std::min(list.find("; "), list.size());
        items.emplace_back(list.substr(0, end));
        next = std::min(end + 2, list.size());
    }
    return items;
}

bool Matches(std::string_view text, const char* pattern) {
    return std::regex_match(text.begin(), text.end(), std::regex(pattern));
}

/// The references after their title, with the line ends of the reports.
template<class Place>
std::string References(Place place, bool runOn) {
    std::vector<const Paper*> printed;
    for (const Paper& paper : PaperTable())
        if (paper.*place > 0)
            printed.push_back(&paper);
    std::ranges::sort(printed, {}, [&](const Paper* paper) { return paper->*place; });
    std::string text = "REFERENCES\r\n==========\r\n";
    for (std::size_t i = 0; i < printed.size(); ++i) {
        EXPECT_EQ(printed[i]->*place, static_cast<int>(i) + 1) << printed[i]->key;
        text.append(printed[i]->entry).append(runOn && printed[i]->runsOn ? "" : "\r\n");
    }
    return text;
}

std::string GoldenReferences(const char* name) {
    const std::string text = ReadBytes(std::string(CORVANE_GOLDEN) + "/" + name);
    return text.substr(text.find("REFERENCES\r\n"));
}

TEST(QuantityTable, EveryEntryIsWholeAndFoundByItsKey) {
    std::set<std::string_view> keys, titles;
    for (const Quantity& quantity : QuantityTable()) {
        SCOPED_TRACE(quantity.key);
        EXPECT_TRUE(Matches(quantity.key, "[a-z][a-z0-9_]*(\\.[a-z0-9_]+)*"));
        EXPECT_TRUE(keys.insert(quantity.key).second) << "twice";
        EXPECT_TRUE(titles.insert(quantity.title).second) << quantity.title << ": twice";
        EXPECT_EQ(FindQuantity(quantity.key), &quantity);
        EXPECT_FALSE(quantity.title.empty() || quantity.formula.empty() || quantity.range.empty());
        // One sentence: no full stop but the last.
        EXPECT_TRUE(Matches(quantity.meaning, "[A-Z][^;]*\\.") &&
                    quantity.meaning.find(". ") == std::string_view::npos)
            << quantity.meaning;
        for (const std::string_view sentences : {quantity.sign, quantity.remark})
            EXPECT_TRUE(sentences.empty() || Matches(sentences, "[^ ].*\\.")) << sentences;
        for (const std::string_view list : {quantity.papers, quantity.others, quantity.sameIn})
            for (const std::string& item : ItemsOf(list))
                EXPECT_TRUE(Matches(item, "[^ ].*[^ ;.]")) << item;
        for (const std::string& routine : ItemsOf(quantity.sameIn))
            EXPECT_TRUE(Matches(routine, "(R|scipy)(, [^:]+)?: .+")) << routine;
    }
    EXPECT_EQ(FindQuantity("regression"), nullptr);
}

TEST(PaperTable, EveryPaperExistsAndIsUsed) {
    std::set<std::string> cited, keys;
    for (const Quantity& quantity : QuantityTable())
        for (const std::string& key : ItemsOf(quantity.papers)) {
            EXPECT_NE(FindPaper(key), nullptr) << quantity.key << ": " << key;
            cited.insert(key);
        }
    for (const Paper& paper : PaperTable()) {
        const std::string key(paper.key), year = key.substr(key.find_first_of("12"));
        EXPECT_TRUE(keys.insert(key).second && FindPaper(key) == &paper) << key;
        EXPECT_TRUE(cited.contains(key) || paper.inReport > 0 || paper.inComparison > 0) << key;
        EXPECT_TRUE(paper.cited.ends_with("(" + year + ")")) << key;
        EXPECT_NE(paper.entry.find(" " + year + ". "), std::string_view::npos) << key;
    }
}

TEST(PaperTable, ReferencesComeOutAsPrinted) {
    EXPECT_EQ(References(&Paper::inReport, true), GoldenReferences("mtcars.txt"));
    EXPECT_EQ(References(&Paper::inComparison, false), GoldenReferences("compare_three.txt"));
}

} // namespace
} // namespace corvane
