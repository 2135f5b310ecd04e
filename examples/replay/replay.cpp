// A program that uses the designer through `rulemesh drive`: it plays a session file and tells in words what happens.
//
//   rulemesh_replay requests SESSION | rulemesh drive | rulemesh_replay tell SESSION
//
// A session file holds one request a line, as `rulemesh drive` reads them, with three liberties: a line that begins
// with
// "# " is narration, one that begins with "-> " is an answer that somebody expects and is passed over, and
// {"$file": "PATH"} in place of a value stands for the text of that file, found from the session's folder.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <nlohmann/json.hpp>

#include "telling.h"

namespace {

using nlohmann::json;

std::ifstream Opened(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw std::runtime_error("can't read " + path.string());
    return stream;
}

void FillInFiles(json& value, const std::filesystem::path& folder)
{
    if (value.is_object() && value.contains("$file")) {
        std::ifstream stream = Opened(folder / value.at("$file").get<std::string>());
        value = std::string(std::istreambuf_iterator<char>(stream), {});
        return;
    }
    if (value.is_structured())
        for (json& below : value)
            FillInFiles(below, folder);
}

bool IsAnswer(const std::string& line) { return line.starts_with("-> "); }

void WriteRequests(std::istream& session, const std::filesystem::path& folder)
{
    for (std::string line; std::getline(session, line);) {
        if (line.empty() || line.front() == '#' || IsAnswer(line))
            continue;
        json request = json::parse(line);
        FillInFiles(request, folder);
        std::cout << request.dump() << std::endl;
    }
}

void Tell(std::istream& session, std::istream& answers)
{
    for (std::string line, answer; std::getline(session, line);) {
        if (line.empty() || IsAnswer(line))
            continue;
        if (line.front() == '#') {
            std::cout << '\n' << line.substr(std::min<std::size_t>(2, line.size())) << "\n\n";
            continue;
        }
        const json request = json::parse(line);
        if (!std::getline(answers, answer))
            throw std::runtime_error("no answer to " + line);
        std::cout << "  " << RequestInWords(request) << '\n' << AnswerInWords(request, json::parse(answer));
    }
}

} // namespace

int main(int count, char** words)
{
    try {
        const std::string task = count == 3 ? words[1] : "";
        if (task != "requests" && task != "tell")
            throw std::runtime_error("usage: rulemesh_replay requests|tell SESSION");
        const std::filesystem::path path = words[2];
        std::ifstream session = Opened(path);
        if (task == "requests")
            WriteRequests(session, path.parent_path());
        else
            Tell(session, std::cin);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "rulemesh_replay: " << error.what() << '\n';
        return 1;
    }
}
