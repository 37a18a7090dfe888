#pragma once

#include "comparison/comparison_steps.h"
#include "comparison/koc_file.h"
#include "core/format/failure.h"
#include "platform/file_store.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// As many are read of every file, also where its N is smaller.
inline constexpr std::size_t FewestDataRows = 5;

/// A cell that is needed as a number and is none.
struct UnreadCell {
    std::size_t row; ///< From 0.
    char column;     ///< 'X' or 'Y'
    std::size_t line;
    std::string text;
};

/// One model of a comparison.
struct ComparedModel {
    std::string path;
    std::string tag;       ///< Its position in the list, from 1, which the report's tables print.
    std::vector<double> X; ///< The predictions; NaN where the text is no number.
    std::vector<UnreadCell> unread;
    std::string discardedBy; ///< The later file with more rows for which the predictions were discarded.
};

/// What the models' files hold. Rows count from 0.
struct ComparisonData {
    std::vector<ComparedModel> models;
    std::vector<std::string> observedText; ///< As the files have it; "" in a slot that no file has filled.
    std::vector<double> Y;                 ///< The same as numbers; NaN where a text is none.
    std::size_t N = FewestDataRows;        ///< The rows that are read of every file.

    bool IsObserved(std::size_t row) const { return row < Y.size() && !observedText[row].empty(); }

    /// An observed value, and a prediction of a model. A RunFailure that names file, line and row where there
    /// is no number.
    double Observed(std::size_t row) const;
    double Predicted(std::size_t model, std::size_t row) const;
};

/// Two files have different observations in a row.
class ObservationsDiffer : public RunFailure {
public:
    ObservationsDiffer(const std::string& what, std::size_t dataRow, std::size_t modelOrdinal)
        : RunFailure(what), row(dataRow), ordinal(modelOrdinal) {}

    std::size_t row;     ///< From 1.
    std::size_t ordinal; ///< Of the later file among the selected ones, from 1.
};

/// Reads the selected files in the list's order. A file's N that exceeds those before it, and 5, is the
/// number of rows from there on, and discards what was read of the files before. Observations are compared as
/// text, but for those of the list's first file. A RunFailure names file and line. Each file is a step.
ComparisonData LoadModels(const std::vector<ListedFile>& list, const FileStore& files,
                          ComparisonSteps& steps);

} // namespace corvane
