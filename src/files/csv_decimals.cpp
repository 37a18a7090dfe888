#include "files/csv_decimals.h"

namespace corvane {

const DecimalEvidence::Example* DecimalEvidence::First(NumberForm form, NumberForm other) const {
    for (const NumberForm each : {form, other})
        if (Seen(each))
            return &*first[static_cast<std::size_t>(each)];
    return nullptr;
}

char DecimalEvidence::Decimal() const {
    return said != '.' && First(NumberForm::Comma, NumberForm::CommaOrGroups) ? ',' : '.';
}

std::optional<CsvRemark> DecimalEvidence::Doubt(char separator) const {
    const Example* const point = First(NumberForm::Point, NumberForm::PointOrGroups);
    const Example* const comma = First(NumberForm::Comma, NumberForm::CommaOrGroups);
    const Example* const groups = First(NumberForm::DigitGroups, NumberForm::DigitGroups);
    const auto about = [](const Example* example, const std::string& text) {
        return CsvRemark{example->line, example->number + " " + text + example->shownLine};
    };
    if (said == '.')
        return std::nullopt;
    if (groups)
        return about(groups, "has thousands separators; remove them from the file");
    if (said == ',') {
        if (point)
            return about(point, "has a point, though --decimal , says that the comma is decimal");
        // Then "1,5" stands for two numbers, or the option for nothing.
        if (separator == ',' && !comma)
            return CsvRemark{
                0,
                "--decimal , does not fit: the comma separates the columns, and no number in quotes has one"};
        return std::nullopt;
    }
    if (separator == ',' && comma && !point)
        return about(comma,
                     "may be decimal or have a thousands separator; if its comma is decimal, import with "
                     "--decimal ,; if it separates thousands, remove it from the file");
    if (separator == ',' && comma && !Seen(NumberForm::Comma))
        return about(comma, "has a thousands separator, since in line " + std::to_string(point->line) + " " +
                                point->number + " has a point; remove such marks from the file");
    if (point && comma)
        return about(comma, "has a comma, and in line " + std::to_string(point->line) + " " + point->number +
                                " has a point; only one of the two can be decimal");
    if (comma && !Seen(NumberForm::Comma))
        return about(
            comma, "and all its like may be decimal or have a thousands separator; if the comma is decimal, "
                   "import with --decimal ,");
    // Where commas separate the columns the point is free to be decimal, and there it always is.
    if (separator != ',' && point && !Seen(NumberForm::Point))
        return about(
            point, "and all its like may be decimal or have a thousands separator; if the point is decimal, "
                   "import with --decimal .");
    return std::nullopt;
}

} // namespace corvane
