#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/utf8.h"

using namespace rulemesh;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

template <typename Conversion> std::optional<FailureCode> FailureOf(Conversion conversion)
{
    try {
        static_cast<void>(conversion());
    } catch (const Failure& failure) {
        return failure.Code();
    }
    return std::nullopt;
}

} // namespace

// A text converts exactly when it is numeric, to the value nearest to the one as a double, and its written number
// reads the same. What a beginning gives is what the whole gives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Text text = FromUtf8({reinterpret_cast<const char*>(data), size});
    const auto mismatch = FailureOf([&] { return ToInt16(text); });
    Require(IsNumeric(text) == (mismatch != FailureCode::TypeMismatch));
    Require(IsNumeric(text) == (FailureOf([&] { return ToDouble(text); }) == std::nullopt));
    const auto leading = FailureOf([&] { return LeadingNumber(text); });
    Require(leading == std::nullopt || leading == FailureCode::Overflow);
    if (!IsNumeric(text))
        return 0;
    Require(mismatch == leading);
    if (mismatch == FailureCode::Overflow) {
        Require(std::abs(ToDouble(text)) > 32767.0);
        return 0;
    }
    const std::int16_t number = ToInt16(text);
    Require(std::abs(ToDouble(text) - number) <= 0.5 && LeadingNumber(text) == number);
    Require(ToInt16(PlainNumber(number)) == number && IsNumeric(TwoDigitNumber(number)));
    return 0;
}
