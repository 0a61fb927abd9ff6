#include "text/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "text/text.h"

namespace text {

namespace {

struct Number {
    double value;
    std::string_view rest;  ///< the text after the number
};

/// The value of an unsigned number outside the range of a double: zero or infinity.
double ValueBeyondDouble(std::string_view digits) {
    const std::size_t e = std::min(digits.find_first_of("eE"), digits.size());
    const std::size_t point = std::min(digits.find('.'), e);
    const std::size_t first_digit = digits.find_first_not_of("0.");
    const double power = LeadingNumber(digits.substr(std::min(e + 1, digits.size())));
    const bool is_small = static_cast<double>(point) + power < static_cast<double>(first_digit);
    return is_small ? 0 : HUGE_VAL;
}

/// The number at the front of `subject`.
std::optional<Number> ReadNumber(std::string_view subject) {
    const bool negative = subject.starts_with('-');
    if (negative || subject.starts_with('+')) subject.remove_prefix(1);
    // from_chars would accept a second sign, "inf" and "nan".
    if (subject.find_first_of("0123456789.") != 0) return std::nullopt;
    double value = 0;
    const auto [end, error] =
        std::from_chars(subject.data(), subject.data() + subject.size(), value);
    if (error == std::errc::invalid_argument) return std::nullopt;
    const auto length = static_cast<std::size_t>(end - subject.data());
    if (error != std::errc()) value = ValueBeyondDouble(subject.substr(0, length));
    return Number{negative ? -value : value, subject.substr(length)};
}

}  // namespace

double LeadingNumber(std::string_view subject) {
    const std::optional<Number> number = ReadNumber(Trim(subject));
    return number ? number->value : 0;
}

std::optional<double> WholeNumber(std::string_view subject) {
    const std::optional<Number> number = ReadNumber(Trim(subject));
    return number && number->rest.empty() ? std::optional(number->value) : std::nullopt;
}

std::optional<std::int32_t> RoundHalfEven(double value) {
    // Half to even is the default rounding mode, and nothing here changes it.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

}  // namespace text
