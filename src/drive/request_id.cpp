#include "drive/request_id.h"

#include "base/utf8.h"
#include "drive/request.h"

namespace rulemesh {

namespace {

constexpr int DeepestId = 32;

// Texts may hold stand-ins of lone surrogates.
Json Copied(const Json& value, int depth)
{
    if (depth > DeepestId)
        throw Refusal("\"id\" is nested deeper than " + std::to_string(DeepestId) + " levels");
    if (value.is_string())
        return JsonOf(TextOf(value));
    if (value.is_array()) {
        Json copy = Json::array();
        for (const Json& element : value)
            copy.push_back(Copied(element, depth + 1));
        return copy;
    }
    if (value.is_object()) {
        Json copy = Json::object();
        for (const auto& [name, element] : value.items())
            copy[ToUtf8(TextOf(name))] = Copied(element, depth + 1);
        return copy;
    }
    return value;
}

} // namespace

Json IdForAnswer(const Json& id) { return Copied(id, 0); }

} // namespace rulemesh
