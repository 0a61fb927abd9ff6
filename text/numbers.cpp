#include "text/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "text/text.h"

namespace text {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t DigitsFrom(std::string_view subject, std::size_t at) {
    std::size_t end = at;
    while (end < subject.size() && IsDigit(subject[end])) {
        ++end;
    }
    return end - at;
}

bool IsSignAt(std::string_view subject, std::size_t at) {
    return at < subject.size() && (subject[at] == '+' || subject[at] == '-');
}

/// How many characters the number at the front of `subject` has; 0 when there is none.
std::size_t NumberLength(std::string_view subject) {
    std::size_t end = IsSignAt(subject, 0) ? 1 : 0;
    std::size_t digits = DigitsFrom(subject, end);
    end += digits;
    if (end < subject.size() && subject[end] == '.') {
        const std::size_t decimals = DigitsFrom(subject, end + 1);
        digits += decimals;
        end += 1 + decimals;
    }
    if (digits == 0) return 0;
    if (end < subject.size() && (subject[end] == 'e' || subject[end] == 'E')) {
        const std::size_t power = end + (IsSignAt(subject, end + 1) ? 2 : 1);
        const std::size_t power_digits = DigitsFrom(subject, power);
        if (power_digits > 0) end = power + power_digits;
    }
    return end;
}

/// Whether a number that no double can hold is too small rather than too large.
bool IsTiny(std::string_view magnitude) {
    const std::size_t e = std::min(magnitude.find_first_of("eE"), magnitude.size());
    const std::size_t point = std::min(magnitude.find('.'), e);
    const std::size_t leading_digit = magnitude.find_first_not_of("0.");
    std::string_view power = magnitude.substr(std::min(e + 1, magnitude.size()));
    if (power.starts_with('+')) power.remove_prefix(1);
    std::int64_t exponent = 0;
    if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec ==
        std::errc::result_out_of_range) {
        return power.starts_with('-');
    }
    return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading_digit) + exponent <
           0;
}

/// The value of a text that is one number as a whole.
double Value(std::string_view number) {
    const bool negative = number.front() == '-';
    const std::string_view magnitude = number.substr(IsSignAt(number, 0) ? 1 : 0);
    double value = 0;
    const auto outcome =
        std::from_chars(magnitude.data(), magnitude.data() + magnitude.size(), value);
    if (outcome.ec == std::errc::result_out_of_range) value = IsTiny(magnitude) ? 0 : HUGE_VAL;
    return negative ? -value : value;
}

}  // namespace

double LeadingNumber(std::string_view subject) {
    const std::string_view trimmed = Trim(subject);
    const std::size_t length = NumberLength(trimmed);
    return length == 0 ? 0 : Value(trimmed.substr(0, length));
}

std::optional<double> WholeNumber(std::string_view subject) {
    const std::string_view trimmed = Trim(subject);
    const std::size_t length = NumberLength(trimmed);
    if (length == 0 || length != trimmed.size()) return std::nullopt;
    return Value(trimmed);
}

std::optional<std::int32_t> RoundHalfEven(double value) {
    // The default rounding of floating-point numbers, which nothing here changes, is half to even.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

}  // namespace text
