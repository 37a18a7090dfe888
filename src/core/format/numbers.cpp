#include "core/format/numbers.h"

#include "core/format/text_lists.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace corvane {

namespace {

constexpr std::string_view Blanks = " \t";

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string_view TrimmedLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view Trimmed(std::string_view text) {
    text = TrimmedLeft(text);
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

/// A number's text from its sign to its exponent, taken from the beginning of a text.
struct NumberParts {
    bool negative = false;
    std::size_t mantissaBegin = 0;
    std::size_t mantissaEnd = 0; // also where the exponent's letter is, if there is one
    std::size_t end = 0;         // 0: no number
};

std::size_t SkipDigits(std::string_view text, std::size_t position) {
    while (position < text.size() && IsDigit(text[position]))
        ++position;
    return position;
}

NumberParts FindNumber(std::string_view text) {
    NumberParts parts;
    const bool hasSign = !text.empty() && (text[0] == '+' || text[0] == '-');
    parts.negative = hasSign && text[0] == '-';
    parts.mantissaBegin = hasSign ? 1 : 0;
    const std::size_t point = SkipDigits(text, parts.mantissaBegin);
    std::size_t digits = point - parts.mantissaBegin;
    parts.mantissaEnd = point;
    if (point < text.size() && text[point] == '.') {
        parts.mantissaEnd = SkipDigits(text, point + 1);
        digits += parts.mantissaEnd - point - 1;
    }
    if (digits == 0)
        return {};
    parts.end = parts.mantissaEnd;
    std::size_t next = parts.mantissaEnd;
    if (next < text.size() && std::string_view("eEdD").find(text[next]) != std::string_view::npos) {
        ++next;
        if (next < text.size() && (text[next] == '+' || text[next] == '-'))
            ++next;
        if (const std::size_t last = SkipDigits(text, next); last > next)
            parts.end = last;
    }
    return parts;
}

/// Tells too large from too small where the conversion only says "out of range": the sign of the first
/// significant digit's decimal exponent.
bool IsLarge(std::string_view mantissa, std::string_view exponent) {
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    std::int64_t power = 0;
    if (!exponent.empty()) {
        const bool negative = exponent.front() == '-';
        if (!IsDigit(exponent.front()))
            exponent.remove_prefix(1);
        const auto outcome = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
        if (outcome.ec != std::errc())
            return !negative;
        power = negative ? -power : power;
    }
    return place + power > 0;
}

std::optional<double> Convert(std::string_view text, const NumberParts& parts) {
    const std::string_view body = text.substr(parts.mantissaBegin, parts.end - parts.mantissaBegin);
    const std::size_t mantissaSize = parts.mantissaEnd - parts.mantissaBegin;
    double value = 0;
    std::errc error{};
    if (mantissaSize < body.size() && (body[mantissaSize] == 'd' || body[mantissaSize] == 'D')) {
        std::string copy(body);
        copy[mantissaSize] = 'e';
        error = std::from_chars(copy.data(), copy.data() + copy.size(), value).ec;
    } else {
        error = std::from_chars(body.data(), body.data() + body.size(), value).ec;
    }
    if (error == std::errc::result_out_of_range) {
        const std::string_view mantissa = body.substr(0, mantissaSize);
        if (IsLarge(mantissa, mantissaSize < body.size() ? body.substr(mantissaSize + 1) : ""))
            return std::nullopt;
        value = 0;
    } else if (error != std::errc() || std::isinf(value)) {
        return std::nullopt;
    }
    return parts.negative ? -value : value;
}

template<typename Number>
std::string ShortestText(Number value) {
    if (std::isnan(value))
        return "NaN";
    if (std::isinf(value))
        return value < 0 ? "-Infinity" : "Infinity";
    if (value == 0)
        return "0";
    // "d.ddde+xx" or "de+xx", with the fewest digits that read back.
    std::array<char, 40> buffer{};
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                          std::chars_format::scientific)
                                .ptr;
    const std::string_view shown(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t letter = shown.find('e');
    std::string digits(1, shown[0]);
    if (letter > 1)
        digits.append(shown.substr(2, letter - 2));
    int exponent = 0;
    std::from_chars(shown.data() + letter + 2, end, exponent);
    if (shown[letter + 1] == '-')
        exponent = -exponent;

    std::string text(value < 0 ? "-" : "");
    if (exponent < -5 || exponent >= 15) {
        text.append(shown.substr(0, letter)).append(1, 'E').append(shown.substr(letter + 1));
    } else if (exponent < 0) {
        text.append("0.").append(static_cast<std::size_t>(-1 - exponent), '0').append(digits);
    } else {
        const std::size_t integer = static_cast<std::size_t>(exponent) + 1;
        if (integer >= digits.size())
            digits.resize(integer, '0');
        else
            digits.insert(integer, 1, '.');
        text.append(digits);
    }
    return text;
}

template<typename Number>
std::string PlainText(Number value) {
    std::string text = NumberText(value);
    if (text.front() != '-')
        text.insert(0, 1, ' ');
    return text;
}

template<typename Integer>
std::optional<Integer> ToInteger(double value) {
    const double whole = std::nearbyint(value);
    // Written so that NaN fails as well.
    if (whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
        whole <= static_cast<double>(std::numeric_limits<Integer>::max()))
        return static_cast<Integer>(whole);
    return std::nullopt;
}

} // namespace

std::optional<double> ReadNumber(std::string_view text) {
    text = Trimmed(text);
    const NumberParts parts = FindNumber(text);
    if (parts.end == 0 || parts.end != text.size())
        return std::nullopt;
    return Convert(text, parts);
}

double LeadingNumber(std::string_view text) {
    text = TrimmedLeft(text);
    const NumberParts parts = FindNumber(text);
    return parts.end == 0 ? 0 : Convert(text, parts).value_or(0);
}

std::string NumberText(double value) {
    return ShortestText(value);
}

std::string NumberText(float value) {
    return ShortestText(value);
}

std::string PlainNumber(double value) {
    return PlainText(value);
}

std::string PlainNumber(float value) {
    return PlainText(value);
}

std::optional<std::int16_t> ToInteger16(double value) {
    return ToInteger<std::int16_t>(value);
}

std::optional<std::int32_t> ToInteger32(double value) {
    return ToInteger<std::int32_t>(value);
}

std::optional<bool> ToBoolean(std::string_view text) {
    const std::string_view word = Trimmed(text);
    if (EqualInAnyCase(word, "true"))
        return true;
    if (EqualInAnyCase(word, "false"))
        return false;
    const std::optional<double> number = ReadNumber(word);
    return number ? std::optional<bool>(*number != 0) : std::nullopt;
}

} // namespace corvane
