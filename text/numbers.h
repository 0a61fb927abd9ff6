#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace text {

/// The decimal number at the start of `subject`, after any blanks: "12 sec" is 12, "-.5x" is -0.5.
/// 0 if there is none. Never fails: a number too large for a double is infinity.
double LeadingNumber(std::string_view subject);

/// The value of `subject` if all of it, apart from blanks at both ends, is one decimal number with
/// an optional sign, fraction and exponent; nothing otherwise.
std::optional<double> WholeNumber(std::string_view subject);

/// `value` rounded to the nearest whole number, halves to even; nothing if it does not fit in 32
/// bits.
std::optional<std::int32_t> RoundHalfEven(double value);

/// Adds `amount` to `counter`. If the sum does not fit the counter's width, returns false and
/// leaves the counter unchanged.
template <typename Counter>
bool AddWithinWidth(Counter& counter, std::int64_t amount) {
    const std::int64_t old = counter;
    if (amount > 0 ? old > std::numeric_limits<Counter>::max() - amount
                   : old < std::numeric_limits<Counter>::min() - amount) {
        return false;
    }
    counter = static_cast<Counter>(old + amount);
    return true;
}

}  // namespace text
