#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace text {

/// The decimal number that `subject` begins with, after any blanks ("12 sec" is 12, "-.5x" is
/// -0.5); 0 when it begins with none. Never fails: a number too large for a double is infinity.
double LeadingNumber(std::string_view subject);

/// The value of `subject` when the whole of it, blanks around it aside, is one decimal number with
/// an optional sign, fraction and exponent; nothing otherwise.
std::optional<double> WholeNumber(std::string_view subject);

/// `value` rounded to the nearest whole number, an exact half to the even neighbour; nothing when
/// that does not fit 32 bits.
std::optional<std::int32_t> RoundHalfEven(double value);

/// Adds `amount` to `counter`. A sum that does not fit the counter's width leaves it as it was and
/// returns false.
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
