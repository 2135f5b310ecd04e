#include "commands/check_command.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/utf8.h"
#include "commands/csv_writer.h"
#include "commands/exit_status.h"
#include "drive/finding_json.h"
#include "files/object_file.h"

namespace rulemesh {

namespace {

struct CheckedFile {
    std::string Name;
    std::vector<Finding> Findings;
};

std::vector<Finding> FindingsIn(const std::string& name)
{
    ObjectInFile file = ReadObject(name);
    CheckObject(file);
    XmlDocument document;
    if (!document.loadXML(std::move(file.Object)))
        throw FileError(name + " holds no mapping object");
    return FindingsOf(ContentOf(document));
}

// "dump 10 salor101.name", "ordrs001 line 3", "functions line 3", "salor101"
std::string PlaceOf(const Finding& finding)
{
    std::string place;
    const auto add = [&place](const std::string& part) { place += (place.empty() ? "" : " ") + part; };
    if (finding.Dump != 0)
        add("dump " + std::to_string(finding.Dump));
    const bool isScript = finding.Line != 0;
    if (isScript && finding.Table.empty())
        add("precondition");
    else if (isScript && finding.Table == FunctionsTable)
        add("functions");
    else if (!finding.Table.empty() || !finding.Field.empty())
        add(ToUtf8(finding.Table) + (finding.Field.empty() ? "" : "." + ToUtf8(finding.Field)));
    if (isScript)
        add("line " + std::to_string(finding.Line));
    return place;
}

void PrintText(const std::vector<CheckedFile>& files, std::ostream& output)
{
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.Findings)
            output << file.Name << ": " << PlaceOf(finding) << ": " << ToUtf8(SeverityWord(finding.How)) << ": "
                   << ToUtf8(finding.Sentence) << " [" << ToUtf8(finding.Kind) << "]\n";
    }
}

void PrintJson(const std::vector<CheckedFile>& files, std::ostream& output)
{
    Json list = Json::array();
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.Findings) {
            Json item = {{"file", file.Name}};
            item.update(JsonOf(finding));
            list.push_back(std::move(item));
        }
    }
    output << list.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

void PrintCsv(const std::vector<CheckedFile>& files, std::ostream& output)
{
    output << CsvRecord({"file", "kind", "severity", "dump", "table", "field", "line", "text"});
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.Findings)
            output << CsvRecord({file.Name, ToUtf8(finding.Kind), ToUtf8(SeverityWord(finding.How)),
                                 std::to_string(finding.Dump), ToUtf8(finding.Table), ToUtf8(finding.Field),
                                 std::to_string(finding.Line), ToUtf8(finding.Sentence)});
    }
}

void Print(CheckOptions::Format format, const std::vector<CheckedFile>& files, std::ostream& output)
{
    switch (format) {
    case CheckOptions::Format::Text:
        PrintText(files, output);
        break;
    case CheckOptions::Format::Json:
        PrintJson(files, output);
        break;
    case CheckOptions::Format::Csv:
        PrintCsv(files, output);
        break;
    }
    output.flush();
}

} // namespace

int RunCheck(const CheckOptions& options, std::ostream& output, std::ostream& errors)
{
    std::vector<CheckedFile> files;
    bool allRead = true;
    for (const std::string& name : options.Files) {
        try {
            files.push_back({name, FindingsIn(name)});
        } catch (const FileError& error) {
            errors << "rulemesh: " << error.what() << '\n';
            allRead = false;
        }
    }
    Print(options.As, files, output);
    if (!output) {
        errors << "rulemesh: the findings can't be written\n";
        return CannotOpenFile;
    }
    if (!allRead)
        return CannotOpenFile;
    const bool fails = std::any_of(files.begin(), files.end(), [&](const CheckedFile& file) {
        return std::any_of(file.Findings.begin(), file.Findings.end(),
                           [&](const Finding& finding) { return finding.How >= options.Fails; });
    });
    return fails ? NotDone : Done;
}

} // namespace rulemesh
