#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

#include "drive/session.h"
#include "engine/shared_form_values.h"

// Every line of requests is answered by one object that tells whether it was done, in one line of well-formed UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    rulemesh::Shared() = {}; // the values that controls share would carry one run into the next
    rulemesh::Session session;
    std::istringstream requests(std::string(reinterpret_cast<const char*>(data), size));
    for (std::string line; std::getline(requests, line);) {
        const auto request = nlohmann::json::parse(line, nullptr, false);
        if (request.is_object() && request.value("do", nlohmann::json()) == "save")
            continue; // or it would write over whatever file it names
        const std::string answer = session.Answer(line);
        const auto object = nlohmann::json::parse(answer, nullptr, false);
        const bool holds = object.is_object() && object.value("ok", nlohmann::json()).is_boolean() &&
                           object.value("happened", nlohmann::json()).is_array() &&
                           answer.find('\n') == std::string::npos &&
                           object["ok"] == (!object.contains("refused") && !object.contains("failure"));
        if (!holds)
            std::abort();
    }
    return 0;
}
