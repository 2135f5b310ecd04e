#include "base/text.h"

#include <algorithm>
#include <cassert>

namespace rulemesh {

namespace {

constexpr char16_t FoldAscii(char16_t character) noexcept
{
    const bool upper = character >= u'A' && character <= u'Z';
    return upper ? static_cast<char16_t>(character - u'A' + u'a') : character;
}

template <typename Find> Text Replace(TextView text, std::size_t length, TextView replacement, Find find)
{
    assert(length > 0);
    Text result;
    std::size_t from = 0;
    for (std::size_t hit = find(from); hit != TextView::npos; hit = find(from)) {
        result.append(text, from, hit - from).append(replacement);
        from = hit + length;
    }
    return result.append(text, from, text.size() - from);
}

} // namespace

TextView TrimBlanks(TextView text) noexcept
{
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == TextView::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::vector<Text> Split(TextView text, char16_t separator)
{
    std::vector<Text> parts;
    if (text.empty())
        return parts;
    std::size_t from = 0;
    for (std::size_t hit = text.find(separator); hit != TextView::npos; hit = text.find(separator, from)) {
        parts.emplace_back(text.substr(from, hit - from));
        from = hit + 1;
    }
    parts.emplace_back(text.substr(from));
    return parts;
}

Text ReplaceAll(TextView text, TextView find, TextView replacement)
{
    return Replace(text, find.size(), replacement, [&](std::size_t from) { return text.find(find, from); });
}

Text ReplaceAllIgnoringCase(TextView text, TextView find, TextView replacement)
{
    return Replace(text, find.size(), replacement,
                   [&](std::size_t from) { return FindIgnoringCase(text, find, from); });
}

Text Without(TextView text, char16_t character)
{
    Text result(text);
    std::erase(result, character);
    return result;
}

std::size_t FindIgnoringCase(TextView text, TextView find, std::size_t from) noexcept
{
    if (from > text.size())
        return TextView::npos;
    if (find.empty())
        return from;
    const auto same = [](char16_t a, char16_t b) { return FoldAscii(a) == FoldAscii(b); };
    const auto hit =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), find.begin(), find.end(), same);
    return hit == text.end() ? TextView::npos : static_cast<std::size_t>(hit - text.begin());
}

} // namespace rulemesh
