#include "document/xml_declaration.h"

#include <string_view>

#include "document/xml_scan.h"

namespace rulemesh::xml {

namespace {

constexpr bool IsDigit(char byte) noexcept { return byte >= '0' && byte <= '9'; }

constexpr bool IsLetter(char byte) noexcept { return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'); }

bool IsVersion(std::string_view value) noexcept
{
    if (!value.starts_with("1.") || value.size() == 2)
        return false;
    for (const char byte : value.substr(2)) {
        if (!IsDigit(byte))
            return false;
    }
    return true;
}

bool IsEncoding(std::string_view value) noexcept
{
    if (value.empty() || !IsLetter(value.front()))
        return false;
    for (const char byte : value) {
        if (!IsLetter(byte) && !IsDigit(byte) && byte != '.' && byte != '_' && byte != '-')
            return false;
    }
    return true;
}

bool IsStandalone(std::string_view value) noexcept { return value == "yes" || value == "no"; }

// The three settings stand in this order; only the first is required.
struct Setting {
    std::string_view name;
    bool (*accepts)(std::string_view) noexcept;
    bool required;
};

constexpr Setting Settings[] = {
    {"version", IsVersion, true}, {"encoding", IsEncoding, false}, {"standalone", IsStandalone, false}};

bool StartsWith(const char* at, std::string_view text) noexcept
{
    for (const char byte : text) {
        if (*at++ != byte)
            return false;
    }
    return true;
}

// Reads ` name = "value"`; returns the place behind it, or null when its grammar is broken.
const char* ReadSetting(const char* at, const Setting& setting) noexcept
{
    at = SkipSpaces(at + setting.name.size());
    if (*at != '=')
        return nullptr;
    at = SkipSpaces(at + 1);
    const char quote = *at;
    if (quote != '"' && quote != '\'')
        return nullptr;
    const char* const value = ++at;
    while (*at != quote && *at != '\0')
        ++at;
    if (*at != quote || !setting.accepts({value, static_cast<std::size_t>(at - value)}))
        return nullptr;
    return at + 1;
}

} // namespace

std::size_t DeclarationLength(const char* text) noexcept
{
    const char* at = text + 5; // "<?xml"
    for (const Setting& setting : Settings) {
        const char* const name = SkipSpaces(at);
        if (name != at && StartsWith(name, setting.name)) {
            at = ReadSetting(name, setting);
            if (at == nullptr)
                return 0;
        } else if (setting.required) {
            return 0;
        }
    }
    at = SkipSpaces(at);
    return StartsWith(at, "?>") ? static_cast<std::size_t>(at + 2 - text) : 0;
}

} // namespace rulemesh::xml
