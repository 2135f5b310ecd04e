#include "telling.h"

#include <functional>
#include <map>
#include <vector>

#include "table.h"

namespace {

using nlohmann::json;

constexpr const char* Indent = "    ";

// A value on one line; of a long text only its size.
std::string Brief(const json& value)
{
    if (value.is_object() && value.contains("$file"))
        return "the text of " + value.at("$file").get<std::string>();
    if (!value.is_string())
        return OnOneLine(value.dump(), 100);
    const auto& text = value.get_ref<const std::string&>();
    return text.size() > 400 ? "a text of " + std::to_string(text.size()) + " bytes" : '"' + OnOneLine(text, 240) + '"';
}

std::string Text(const json& object, const char* name)
{
    const json& value = object.value(name, json());
    return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string Arguments(const json& arguments)
{
    std::string list;
    for (const auto& [name, value] : arguments.items())
        list += (list.empty() ? "" : ", ") + (arguments.is_object() ? name + " " : "") + Brief(value);
    return list;
}

std::string ReplyInWords(const json& reply)
{
    json rest = reply;
    rest.erase("do");
    rest.erase("to");
    return "(The answer to the next " + Text(reply, "to") + ": " + Arguments(rest) + ")";
}

std::string KeyInWords(const json& request)
{
    return "The user presses key " + Text(request, "code") +
           (request.value("shift", 0) != 0 ? " with shift state " + Text(request, "shift") : "") + ".";
}

std::string CellInWords(const json& request)
{
    return std::string("The user ") + (request.value("double", false) ? "double-clicks" : "clicks") + " row " +
           Text(request, "row") + ", column " + Text(request, "col") + " of " + Text(request, "view") + ".";
}

using Words = std::function<std::string(const json&)>;

const std::map<std::string, Words>& WordsOfRequests()
{
    static const std::map<std::string, Words> words = {
        {"create", [](const json&) { return std::string("The host makes a new control."); }},
        {"let",
         [](const json& r) {
             return "The host sets " + Text(r, "name") + " to " + Brief(r.value("value", json())) + ".";
         }},
        {"get", [](const json& r) { return "The host reads " + Text(r, "name") + "."; }},
        {"call",
         [](const json& r) {
             return "The host calls " + Text(r, "name") + "(" + Arguments(r.value("args", json::array())) + ").";
         }},
        {"resize",
         [](const json& r) {
             return "The host makes the control " + Text(r, "width") + " by " + Text(r, "height") + " twips.";
         }},
        {"set",
         [](const json& r) {
             return std::string("The host ") + (r.value("visible", false) ? "shows " : "hides ") + Text(r, "view") +
                    ".";
         }},
        {"click", [](const json& r) { return "The user clicks " + Text(r, "view") + "."; }},
        {"tab",
         [](const json& r) {
             return std::string("The user opens the tab ") + (r.value("index", 0) == 0 ? "Condition." : "Rules.");
         }},
        {"focus", [](const json& r) { return "The user goes to " + Text(r, "view") + "."; }},
        {"leave", [](const json&) { return std::string("The user leaves the control."); }},
        {"type",
         [](const json& r) {
             return "The user types into " + Text(r, "view") + ": " + Brief(r.value("text", json()));
         }},
        {"key", KeyInWords},
        {"press", [](const json& r) { return "The user types the character " + Text(r, "ascii") + "."; }},
        {"choose",
         [](const json& r) { return "The user picks entry " + Text(r, "index") + " of " + Text(r, "view") + "."; }},
        {"row", [](const json& r) { return "The user clicks row " + Text(r, "row") + " of " + Text(r, "view") + "."; }},
        {"tick",
         [](const json& r) {
             return std::string("The user ") + (r.value("on", true) ? "ticks" : "unticks") + " row " + Text(r, "row") +
                    " of " + Text(r, "view") + ".";
         }},
        {"header",
         [](const json& r) {
             return "The user clicks the header of column " + Text(r, "column") + " of " + Text(r, "view") + ".";
         }},
        {"cell", CellInWords},
        {"scroll",
         [](const json& r) { return "The user scrolls " + Text(r, "view") + " to row " + Text(r, "top") + "."; }},
        {"reply", ReplyInWords},
        {"read", [](const json& r) { return "A look at " + Text(r, "view") + ":"; }},
        {"focused", [](const json&) { return std::string("Where the focus is:"); }},
        {"state", [](const json&) { return std::string("The fields of the control:"); }},
        {"xml", [](const json&) { return std::string("The document as it stands:"); }},
    };
    return words;
}

std::string MessageInWords(const json& box)
{
    const std::string title = Text(box, "title");
    const std::string icon = Text(box, "icon");
    return "message" + (icon == "none" ? "" : " (" + icon + ")") + (title.empty() ? "" : " \"" + title + "\"") + ": " +
           OnOneLine(Text(box, "text"), 400) + "  -> " + Text(box, "answer");
}

std::string HappeningInWords(const std::string& kind, const json& what)
{
    if (kind == "message")
        return MessageInWords(what);
    if (kind == "input")
        return "question: " + OnOneLine(Text(what, "prompt"), 400) + "  -> " + Brief(what.value("answer", json()));
    if (kind == "form")
        return "form \"" + Text(what, "caption") + "\": " +
               (Text(what, "mode") == "note" ? Brief(what.value("text", json()))
                                             : "choose among " + Arguments(what.value("entries", json::array())));
    if (kind == "event")
        return "event " + Text(what, "name") + "(" + Arguments(what.value("args", json::object())) + ")";
    if (kind == "editor")
        return "editor runs: " + Text(what, "command");
    return kind + " " + Text(what, "file") + ", " + std::to_string(Text(what, "text").size()) + " bytes";
}

std::string ValueInWords(const json& value)
{
    if (value.is_object() && value.contains("rows"))
        return AsTable(value.at("rows").get<std::vector<std::vector<std::string>>>(), Indent);
    std::vector<std::vector<std::string>> lines;
    if (value.is_object() && value.contains("entries")) {
        for (const json& entry : value.at("entries"))
            lines.push_back({Text(entry, "text") == Text(value, "text") ? ">" : "-", Text(entry, "text")});
    } else if (value.is_object() && (value.contains("text") || value.contains("caption"))) {
        std::string text = value.contains("text") ? Text(value, "text") : Text(value, "caption");
        for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
            lines.push_back({"  " + text.substr(0, end)});
            text.erase(0, end + 1);
        }
        lines.push_back({"  " + text});
    } else if (value.is_object()) {
        for (const auto& [name, member] : value.items())
            lines.push_back({name, Brief(member)});
    } else {
        lines.push_back({Brief(value)});
    }
    return AsTable(lines, Indent);
}

} // namespace

std::string RequestInWords(const json& request)
{
    const auto found = WordsOfRequests().find(Text(request, "do"));
    return found == WordsOfRequests().end() ? request.dump() : found->second(request);
}

std::string AnswerInWords(const json& request, const json& answer)
{
    std::string told;
    for (const json& entry : answer.value("happened", json::array()))
        for (const auto& [kind, what] : entry.items())
            told += Indent + HappeningInWords(kind, what) + "\n";
    if (answer.contains("refused"))
        told += Indent + ("refused: " + Text(answer, "refused")) + "\n";
    if (answer.contains("failure"))
        told += Indent + ("failure " + Arguments(answer.at("failure"))) + "\n";
    if (answer.contains("value") && Text(request, "do") != "key")
        told += ValueInWords(answer.at("value"));
    return told;
}
