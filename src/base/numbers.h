#pragma once

#include <cstdint>

#include "base/text.h"

namespace rulemesh {

/// Whether the whole text is a number: optional sign, digits with an optional decimal point, optional exponent.
[[nodiscard]] bool IsNumeric(TextView text) noexcept;

/// The number nearest to the text's value, halves to the even one. Raises TypeMismatch when the text is not numeric
/// and Overflow outside -32768..32767.
[[nodiscard]] std::int16_t ToInt16(TextView text);

/// Narrows a whole number. Raises Overflow outside -32768..32767.
[[nodiscard]] std::int16_t ToInt16(std::int64_t number);

/// The value of a numeric text, of any size. Raises TypeMismatch when the text is not numeric.
[[nodiscard]] double ToDouble(TextView text);

/// The value of the longest numeric beginning, narrowed like ToInt16; 0 when there is none.
[[nodiscard]] std::int16_t LeadingNumber(TextView text);

/// Plain decimal: "3", "-2".
[[nodiscard]] Text PlainNumber(std::int64_t number);

/// The printed form, with a blank before a number that isn't negative: " 3", "-2".
[[nodiscard]] Text PrintedNumber(std::int64_t number);

/// At least two digits: "03", "120", "-02".
[[nodiscard]] Text TwoDigitNumber(std::int64_t number);

} // namespace rulemesh
