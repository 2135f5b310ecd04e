#pragma once

#include <stdexcept>
#include <string>

#include "drive/json_text.h"

namespace rulemesh {

/// A request that can't be made; nothing was changed. The reason is one line.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One request with its members. Each reader refuses the request when the member is missing or of another type.
class Request {
public:
    explicit Request(const Json& members) : members_(members) {}

    [[nodiscard]] const Json& All() const noexcept { return members_; }
    [[nodiscard]] bool Has(const char* name) const { return members_.contains(name); }
    [[nodiscard]] const Json& Member(const char* name) const;
    [[nodiscard]] std::string Word(const char* name) const;
    [[nodiscard]] Text TextMember(const char* name) const;
    [[nodiscard]] bool Flag(const char* name) const;

    /// A whole number; refused outside 32 bits.
    [[nodiscard]] int Number(const char* name) const;

    /// A whole number; refused outside 16 bits.
    [[nodiscard]] std::int16_t SmallNumber(const char* name) const;

private:
    const Json& members_;
};

/// The same of a value that stands alone, told in a refusal by its name.
[[nodiscard]] Text TextValue(const Json& value, const std::string& name);
[[nodiscard]] bool FlagValue(const Json& value, const std::string& name);
[[nodiscard]] int NumberValue(const Json& value, const std::string& name);
[[nodiscard]] std::int16_t SmallNumberValue(const Json& value, const std::string& name);

} // namespace rulemesh
