#include "object/grid_dump.h"

#include "base/numbers.h"

namespace rulemesh {

DumpNumber GridDump::Number() const { return number_ ? *number_ : DumpNumber(ToInt16(Tag())); }

bool GridDump::HasRules() const noexcept { return number_ && !(digits_ == Digits::Plain && number_->Value() == 0); }

Text GridDump::Tag() const
{
    if (!number_)
        return {};
    return digits_ == Digits::Two ? TwoDigitNumber(number_->Value()) : PlainNumber(number_->Value());
}

} // namespace rulemesh
