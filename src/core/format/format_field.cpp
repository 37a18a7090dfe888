#include "core/format/format_field.h"

#include "core/format/numbers.h"
#include "core/format/rounded_decimal.h"
#include "core/format/text_lists.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace corvane {

namespace {

/// Raises a probability that would print as zero; false where the value is none.
bool RaiseProbability(Field& field) {
    if (IsEmpty(field.value))
        return true;
    double value = 0;
    if (const auto* text = std::get_if<std::string>(&field.value)) {
        const std::optional<double> number = ReadNumber(*text);
        if (!number)
            return false;
        value = *number;
    } else {
        value = std::get<double>(field.value);
    }
    double scale = 1;
    if (field.decimals <= 22) {
        // Powers up to 10^22 are exact in a double, and so is this product.
        for (std::int32_t i = 0; i < field.decimals; ++i)
            scale *= 10;
    } else {
        scale = std::pow(10.0, field.decimals);
    }
    if (!std::isfinite(scale))
        return false;
    value = std::max(value, 0.0);
    // A value from 1 upwards has an integer part whatever the scale: the product may overflow but not vanish.
    if (value * scale < 1)
        field.value = value + 1 / scale;
    return true;
}

/// How many blanks go in front when `spare` of them surround a text.
std::size_t BlanksBefore(std::size_t spare, std::int16_t alignment) {
    switch (alignment) {
    case AlignCentre:
        return spare / 2;
    case AlignRight:
        return spare;
    default:
        return 0;
    }
}

/// How many '#' fill the second picture; below 0 there is no such picture.
std::int64_t FillerCount(const Field& field) {
    if (field.decimals != 0)
        return std::int64_t{field.width} - field.decimals - 2;
    return std::int64_t{field.width} - (field.leadingZero ? 2 : 1);
}

/// Both pictures have the same decimals, so the number is rounded once, and the first text matters by its
/// length alone. The pictures themselves are never built.
std::optional<std::string> FormatNumber(const Field& field, double value) {
    const RoundedDecimal rounded = RoundToDecimals(std::abs(value), field.decimals);
    const std::int64_t sign = value < 0 ? 1 : 0;
    const std::int64_t fraction = field.decimals;
    const std::int64_t point = fraction != 0 ? 1 : 0;
    const std::int64_t integer = std::max<std::int64_t>(DigitCount(rounded) - fraction, 0);

    const std::int64_t firstInteger = std::max<std::int64_t>(integer, field.leadingZero ? 1 : 0);
    const std::int64_t firstLength = sign + firstInteger + point + fraction;
    if (firstLength > field.width)
        return AlignField("n/a", field.width, field.alignment);
    if (firstLength == 0)
        return std::string(static_cast<std::size_t>(field.width), ' ');
    if (FillerCount(field) < 0)
        return std::nullopt;

    const std::int64_t finalInteger = point != 0 ? std::max<std::int64_t>(integer, 1) : firstInteger;
    const auto width = static_cast<std::size_t>(field.width);
    const auto length = static_cast<std::size_t>(sign + finalInteger + point + fraction);
    // A leading zero after a sign can make the final text one longer than the field, which then cuts it.
    std::string text(std::max(width, length), ' ');
    char* out = text.data() + (length < width ? BlanksBefore(width - length, field.alignment) : 0);
    if (sign != 0)
        *out++ = '-';
    // The digits go in one place to the right; the integer part then makes room for the point.
    WriteDigits(rounded, out + point, static_cast<std::size_t>(finalInteger + fraction));
    if (point != 0) {
        std::memmove(out, out + 1, static_cast<std::size_t>(finalInteger));
        out[finalInteger] = '.';
    }
    text.resize(width);
    return text;
}

std::optional<std::string> FormatWords(const Field& field, std::string_view text) {
    if (static_cast<std::int64_t>(CharacterCount(text)) > field.width)
        return AlignField("n/a", field.width, field.alignment);
    if (text == ".") {
        const std::string_view zero = field.width >= 3 ? "0.0" : field.width == 2 ? ".0" : "0";
        return AlignField(zero, field.width, field.alignment);
    }
    if (text.empty())
        return std::string(static_cast<std::size_t>(field.width), ' ');
    if (FillerCount(field) < 0)
        return std::nullopt;
    return AlignField(text, field.width, field.alignment);
}

} // namespace

std::optional<std::string> FormatField(Field& field) {
    if (field.alignment == 0)
        field.alignment = AlignRight;
    if (field.decimals < 0)
        return std::nullopt;
    // Before the raising, which would make a probability out of a negative infinity.
    if (const auto* number = std::get_if<double>(&field.value); number && !std::isfinite(*number))
        return std::nullopt;
    if (field.probability && !RaiseProbability(field))
        return std::nullopt;
    if (field.width < 0)
        return std::nullopt;
    if (const auto* number = std::get_if<double>(&field.value))
        return FormatNumber(field, *number);
    const auto* text = std::get_if<std::string>(&field.value);
    if (!text)
        return FormatWords(field, "");
    const std::optional<double> number = ReadNumber(*text);
    return number ? FormatNumber(field, *number) : FormatWords(field, *text);
}

std::string AlignField(std::string_view text, std::int32_t width, std::int16_t alignment) {
    if (text.empty())
        return {};
    const auto room = static_cast<std::size_t>(std::max(width, 0));
    const std::size_t length = CharacterCount(text);
    if (length > room)
        return std::string(FirstCharacters(text, room));
    const std::size_t spare = room - length;
    const std::size_t before = BlanksBefore(spare, alignment);
    if (alignment != AlignCentre)
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::string aligned(before, ' ');
    aligned.append(text);
    aligned.append(spare - before, ' ');
    return aligned;
}

} // namespace corvane
