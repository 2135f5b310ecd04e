#include "drive/request.h"

#include <limits>

namespace rulemesh {

const Json& Request::Member(const char* name) const
{
    const auto member = members_.find(name);
    if (member == members_.end())
        throw Refusal(std::string("the request lacks the member \"") + name + "\"");
    return *member;
}

std::string Request::Word(const char* name) const
{
    const Json& value = Member(name);
    if (!value.is_string())
        throw Refusal(std::string("\"") + name + "\" must be a text");
    return value.get<std::string>();
}

Text Request::TextMember(const char* name) const { return TextValue(Member(name), name); }

bool Request::Flag(const char* name) const { return FlagValue(Member(name), name); }

int Request::Number(const char* name) const { return NumberValue(Member(name), name); }

std::int16_t Request::SmallNumber(const char* name) const { return SmallNumberValue(Member(name), name); }

Text TextValue(const Json& value, const std::string& name)
{
    if (!value.is_string())
        throw Refusal("\"" + name + "\" must be a text");
    return TextOf(value);
}

bool FlagValue(const Json& value, const std::string& name)
{
    if (!value.is_boolean())
        throw Refusal("\"" + name + "\" must be true or false");
    return value.get<bool>();
}

namespace {

template <typename Integer> Integer WholeNumber(const Json& value, const std::string& name)
{
    using Limits = std::numeric_limits<Integer>;
    const bool tooLarge =
        value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(Limits::max());
    if (!value.is_number_integer() || tooLarge || value.get<std::int64_t>() < Limits::min())
        throw Refusal("\"" + name + "\" must be a whole number from " + std::to_string(Limits::min()) + " to " +
                      std::to_string(Limits::max()));
    return value.get<Integer>();
}

} // namespace

int NumberValue(const Json& value, const std::string& name) { return WholeNumber<std::int32_t>(value, name); }

std::int16_t SmallNumberValue(const Json& value, const std::string& name)
{
    return WholeNumber<std::int16_t>(value, name);
}

} // namespace rulemesh
