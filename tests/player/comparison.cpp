#include "player/comparison.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

#include "player/canonical_xml.h"

namespace rulemesh::player {

namespace {

using nlohmann::json;

std::string Shown(const json& value) { return Shortened(value.dump(-1, ' ', false, json::error_handler_t::replace)); }

std::string Difference(const std::string& place, const std::string& expected, const std::string& actual)
{
    return (place.empty() ? "/" : place) + ": expected " + expected + ", got " + actual;
}

// Two long texts differ somewhere in the middle; that is the part to show.
std::string TextDifference(const std::string& place, const std::string& expected, const std::string& actual)
{
    const auto [first, second] = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const auto same = static_cast<std::size_t>(first - expected.begin());
    if (same < 40)
        return Difference(place, Shown(expected), Shown(actual));
    const std::size_t from = same - 30;
    return Difference(place, "..." + Shown(expected.substr(from)), "..." + Shown(actual.substr(from))) +
           " (from offset " + std::to_string(same) + ")";
}

bool IsXmlText(const json& expected)
{
    return expected.is_object() && expected.size() == 1 && expected.contains("$xml");
}

std::string XmlDifference(const std::string& expected, const json& actual, const std::string& place)
{
    const std::string wanted = CanonicalXml(expected);
    if (!actual.is_string())
        return Difference(place, "an XML text", Shown(actual));
    std::string got;
    try {
        got = CanonicalXml(actual.get<std::string>());
    } catch (const std::runtime_error& error) {
        return Difference(place, "an XML text", Shown(actual) + ": " + error.what());
    }
    return wanted == got ? "" : TextDifference(place, wanted, got);
}

std::string DifferenceAt(const json& expected, const json& actual, const std::string& place)
{
    if (IsXmlText(expected))
        return XmlDifference(expected.at("$xml").get<std::string>(), actual, place);
    if (expected.is_string() && actual.is_string() && expected != actual)
        return TextDifference(place, expected.get<std::string>(), actual.get<std::string>());
    if (expected.is_object() && actual.is_object()) {
        for (const auto& [name, value] : expected.items()) {
            const std::string below = place + "/" + name;
            if (!actual.contains(name))
                return Difference(below, Shown(value), "nothing");
            if (std::string difference = DifferenceAt(value, actual.at(name), below); !difference.empty())
                return difference;
        }
        return "";
    }
    if (expected.is_array() && actual.is_array()) {
        for (std::size_t at = 0; at < std::min(expected.size(), actual.size()); ++at) {
            const std::string below = place + "/" + std::to_string(at);
            if (std::string difference = DifferenceAt(expected[at], actual[at], below); !difference.empty())
                return difference;
        }
        if (expected.size() > actual.size())
            return Difference(place + "/" + std::to_string(actual.size()), Shown(expected[actual.size()]), "nothing");
        if (expected.size() < actual.size())
            return Difference(place + "/" + std::to_string(expected.size()), "nothing", Shown(actual[expected.size()]));
        return "";
    }
    return expected == actual ? "" : Difference(place, Shown(expected), Shown(actual));
}

void RefuseUnknownMembers(const json& expected)
{
    constexpr std::array<std::string_view, 6> Known = {"id", "ok", "value", "happened", "failure", "refused"};
    if (!expected.is_object())
        throw std::runtime_error("an answer is a JSON object");
    for (const auto& [name, value] : expected.items())
        if (std::find(Known.begin(), Known.end(), name) == Known.end())
            throw std::runtime_error("an answer has no member \"" + name + "\"");
}

} // namespace

std::string Shortened(const std::string& text)
{
    constexpr std::size_t Longest = 240;
    return text.size() <= Longest ? text : text.substr(0, Longest) + "...";
}

std::string DifferenceOfAnswer(const json& expected, const json& actual)
{
    RefuseUnknownMembers(expected);
    if (!actual.is_object())
        return Difference("", "a JSON object", Shown(actual));

    json whole = {{"ok", true}, {"happened", json::array()}};
    whole.update(expected);
    for (const char* name : {"id", "failure", "refused"})
        if (!whole.contains(name) && actual.contains(name))
            return Difference(std::string("/") + name, "nothing", Shown(actual.at(name)));
    if (whole.value("refused", json()) == true && actual.contains("refused") && actual.at("refused").is_string())
        whole.erase("refused");
    return DifferenceAt(whole, actual, "");
}

} // namespace rulemesh::player
