#include "files/number_form.h"

#include "core/format/numbers.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace corvane {
namespace {

/// From this length on, or with an exponent, a number may be too large for a double.
constexpr std::size_t longNumber = 300;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsExponent(std::string_view text) {
    if (std::string_view("eEdD").find(text.front()) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
        text.remove_prefix(1);
    return !text.empty() && std::ranges::all_of(text, IsDigit);
}

/// Whether a mark groups digits by thousands: 1 to 3 without a leading zero, then threes.
bool InGroups(std::string_view digits, char mark) {
    std::size_t end = digits.find(mark);
    if (digits.front() == '0' || end < 1 || end > 3)
        return false;
    while (end != std::string_view::npos) {
        digits.remove_prefix(end + 1);
        end = digits.find(mark);
        if (std::min(end, digits.size()) != 3)
            return false;
    }
    return true;
}

NumberForm FormOfManyMarks(std::string_view mantissa, std::size_t points, std::size_t commas) {
    if (points == 0 || commas == 0)
        return InGroups(mantissa, points > 0 ? '.' : ',') ? NumberForm::DigitGroups : NumberForm::None;
    const std::size_t last = mantissa.find_last_of(".,");
    const bool decimalPoint = mantissa[last] == '.';
    if ((decimalPoint ? points : commas) > 1)
        return NumberForm::None;
    return InGroups(mantissa.substr(0, last), decimalPoint ? ',' : '.') ? NumberForm::DigitGroups
                                                                        : NumberForm::None;
}

bool FitsDouble(std::string_view text) {
    std::string withPoint(text);
    std::ranges::replace(withPoint, ',', '.');
    return ReadNumber(withPoint).has_value();
}

} // namespace

NumberForm FormOf(std::string_view text) {
    std::string_view mantissa = text;
    if (!mantissa.empty() && (mantissa.front() == '+' || mantissa.front() == '-'))
        mantissa.remove_prefix(1);
    std::size_t digits = 0, points = 0, commas = 0, end = 0;
    for (; end < mantissa.size(); ++end)
        if (IsDigit(mantissa[end]))
            ++digits;
        else if (mantissa[end] == '.')
            ++points;
        else if (mantissa[end] == ',')
            ++commas;
        else
            break;
    const std::string_view exponent = mantissa.substr(end);
    mantissa = mantissa.substr(0, end);
    if (digits == 0 || !(exponent.empty() || IsExponent(exponent)))
        return NumberForm::None;
    if (points + commas > 1)
        return FormOfManyMarks(mantissa, points, commas);
    if ((!exponent.empty() || digits > longNumber) && !FitsDouble(text))
        return NumberForm::None;
    if (points + commas == 0)
        return NumberForm::Whole;
    const bool grouped = exponent.empty() && InGroups(mantissa, points > 0 ? '.' : ',');
    if (points > 0)
        return grouped ? NumberForm::PointOrGroups : NumberForm::Point;
    return grouped ? NumberForm::CommaOrGroups : NumberForm::Comma;
}

} // namespace corvane
