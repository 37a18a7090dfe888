#include "core/format/format_picture.h"

#include "core/format/numbers.h"
#include "core/format/rounded_decimal.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane {

namespace {

struct Picture {
    std::string_view prefix;
    std::string_view suffix;
    bool point = false;
    std::size_t integerDigits = 0; // printed at least
    std::size_t decimals = 0;
    std::size_t fixedDecimals = 0; // printed even where they are trailing zeros
};

Picture ReadPicture(std::string_view text) {
    Picture picture;
    const std::size_t first = text.find_first_of("#0.");
    if (first == std::string_view::npos) {
        picture.prefix = text;
        return picture;
    }
    const std::size_t end = text.find_last_of("#0.") + 1;
    picture.prefix = text.substr(0, first);
    picture.suffix = text.substr(end);
    for (const char character : text.substr(first, end - first)) {
        if (character == '.') {
            picture.point = true;
        } else if (character != '#' && character != '0') {
            continue;
        } else if (picture.point) {
            ++picture.decimals;
            if (character == '0')
                picture.fixedDecimals = picture.decimals;
        } else if (character == '0' || picture.integerDigits != 0) {
            ++picture.integerDigits;
        }
    }
    return picture;
}

std::optional<std::string> ShowNumber(double value, const Picture& picture) {
    if (!std::isfinite(value))
        return std::nullopt;
    const RoundedDecimal rounded =
        RoundToDecimals(std::abs(value), static_cast<std::int64_t>(picture.decimals));
    const std::size_t count =
        std::max(static_cast<std::size_t>(DigitCount(rounded)), picture.decimals + picture.integerDigits);
    std::string digits(count, '0');
    WriteDigits(rounded, digits.data(), count);
    const std::string_view all = digits;
    std::string_view fraction = all.substr(count - picture.decimals);
    while (fraction.size() > picture.fixedDecimals && fraction.back() == '0')
        fraction.remove_suffix(1);

    std::string text(value < 0 ? "-" : "");
    text.append(picture.prefix).append(all.substr(0, count - picture.decimals));
    if (picture.point)
        text.append(1, '.').append(fraction);
    text.append(picture.suffix);
    return text;
}

constexpr std::array<std::string_view, 12> MonthNames = {"January",   "February", "March",    "April",
                                                         "May",       "June",     "July",     "August",
                                                         "September", "October",  "November", "December"};

/// The fields, each before the shorter ones of its letter.
constexpr std::array<std::string_view, 14> DateFields = {"dd", "d",  "mmmm", "mmm", "mm", "m",  "yyyy",
                                                         "yy", "hh", "h",    "nn",  "n",  "ss", "s"};

void AppendPadded(std::string& text, int number, std::size_t digits) {
    const std::string plain = std::to_string(number);
    text.append(digits > plain.size() ? digits - plain.size() : 0, '0').append(plain);
}

void AppendMonth(std::string& text, int month, std::size_t letters) {
    if (letters <= 2 || month < 1 || month > 12) {
        AppendPadded(text, month, std::min<std::size_t>(letters, 2));
        return;
    }
    const std::string_view name = MonthNames[static_cast<std::size_t>(month - 1)];
    text.append(letters == 3 ? name.substr(0, 3) : name);
}

} // namespace

std::optional<std::string> FormatPicture(const CellValue& value, std::string_view picture) {
    if (const auto* number = std::get_if<double>(&value))
        return ShowNumber(*number, ReadPicture(picture));
    const auto* text = std::get_if<std::string>(&value);
    if (!text)
        return std::string();
    const std::optional<double> number = ReadNumber(*text);
    return number ? ShowNumber(*number, ReadPicture(picture)) : *text;
}

std::string FormatPicture(const CalendarTime& time, std::string_view picture) {
    std::string text;
    char lastField = ' ';
    while (!picture.empty()) {
        const auto* const field =
            std::find_if(DateFields.begin(), DateFields.end(),
                         [&](std::string_view known) { return picture.starts_with(known); });
        if (field == DateFields.end()) {
            text += picture.front();
            picture.remove_prefix(1);
            continue;
        }
        const std::size_t letters = field->size();
        switch (field->front()) {
        case 'd':
            AppendPadded(text, time.day, letters);
            break;
        case 'm':
            if (letters <= 2 && lastField == 'h')
                AppendPadded(text, time.minute, letters);
            else
                AppendMonth(text, time.month, letters);
            break;
        case 'y':
            AppendPadded(text, letters == 2 ? time.year % 100 : time.year, letters);
            break;
        case 'h':
            AppendPadded(text, time.hour, letters);
            break;
        case 'n':
            AppendPadded(text, time.minute, letters);
            break;
        default:
            AppendPadded(text, time.second, letters);
            break;
        }
        lastField = field->front();
        picture.remove_prefix(letters);
    }
    return text;
}

} // namespace corvane
