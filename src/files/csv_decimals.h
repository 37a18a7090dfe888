#pragma once

#include "files/csv_layout.h"
#include "files/number_form.h"

#include <utility>

namespace corvane {

/// Gathers, over all numbers of a table, what tells whether the point or the comma is decimal. A file has one
/// decimal mark; thousands separators are never taken.
class DecimalEvidence {
public:
    explicit DecimalEvidence(std::optional<char> decimalSaid) : said(decimalSaid) {}

    /// Whether a number of this form has the value that it has with a decimal point in place of its mark,
    /// provided that `Doubt` finds nothing in the end.
    bool IsNumber(NumberForm form) const {
        return form != NumberForm::None && form != NumberForm::DigitGroups &&
               !(said == '.' && (form == NumberForm::Comma || form == NumberForm::CommaOrGroups));
    }
    bool Seen(NumberForm form) const { return first[static_cast<std::size_t>(form)].has_value(); }
    /// Keeps the first number of its form: the line, the column with the number's text, and the line's text.
    void Keep(NumberForm form, std::size_t line, std::string number, std::string shownLine) {
        first[static_cast<std::size_t>(form)] = {line, std::move(number), std::move(shownLine)};
    }

    /// The mark that the numbers have; a point where none of them has a mark.
    char Decimal() const;
    /// Why the numbers may be read in two ways, or nothing.
    std::optional<CsvRemark> Doubt(char separator) const;

private:
    struct Example {
        std::size_t line = 0;
        std::string number, shownLine;
    };
    const Example* First(NumberForm form, NumberForm other) const;

    std::optional<char> said;
    std::array<std::optional<Example>, static_cast<std::size_t>(NumberForm::DigitGroups) + 1> first;
};

} // namespace corvane
