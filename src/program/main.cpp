#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <map>
#include <new>
#include <string>

#include <CLI/CLI.hpp>

#include "commands/check_command.h"
#include "commands/exit_status.h"
#include "program/drive_command.h"
#include "program/end_without_memory.h"

#ifdef RULEMESH_HAS_APPLICATION
#include "program/display.h"
#include "program/window_program.h"
#endif

namespace {

#ifdef RULEMESH_HAS_APPLICATION
int Unknown(const std::string& word)
{
    std::cerr << "rulemesh: \"" << word << "\" is no command and no file; see rulemesh --help\n";
    return static_cast<int>(CLI::ExitCodes::ExtrasError);
}

// The short forms: a file alone, or nothing at all.
int OpenWithoutCommand(const CLI::App& program, char* name, const std::string& file)
{
    if (file.empty() && !rulemesh::HasDisplay()) {
        std::cerr << "rulemesh: there is no display to open the application on\n\n" << program.help();
        return static_cast<int>(CLI::ExitCodes::RequiredError);
    }
    std::error_code trouble;
    if (!file.empty() && !std::filesystem::exists(file, trouble))
        return Unknown(file);
    return rulemesh::BecomeWindowProgram(name, {rulemesh::WindowProgram::Open, file});
}
#endif

// The commands on files tell it in one line, and with the status of a file that can't be read.
int WrongCommandLine(const CLI::App& command, const CLI::ParseError& error)
{
    std::cerr << "rulemesh " << command.get_name() << ": " << error.what() << "; see rulemesh " << command.get_name()
              << " --help\n";
    return rulemesh::CannotOpenFile;
}

// An option whose value is one of a few words.
template <typename Value>
void AddChoice(CLI::App& command, const std::string& name, Value& value, const std::map<std::string, Value>& words,
               const std::string& text)
{
    command
        .add_option_function<std::string>(
            name, [&value, words](const std::string& word) { value = words.at(word); }, text)
        ->check(CLI::IsMember(words).description(""))
        ->type_name("");
}

CLI::App* AddCheck(CLI::App& program, rulemesh::CheckOptions& options)
{
    using Format = rulemesh::CheckOptions::Format;
    using Severity = rulemesh::Finding::Severity;
    CLI::App* check = program.add_subcommand("check", "Tell what is wrong with mapping objects.");
    check->add_option("FILE", options.Files, "Files with mapping objects.")->required()->type_name("");
    AddChoice(*check, "--format", options.As, {{"text", Format::Text}, {"json", Format::Json}, {"csv", Format::Csv}},
              "How findings are printed: text, json or csv (text).");
    AddChoice(*check, "--severity", options.Fails,
              {{"error", Severity::Error}, {"warning", Severity::Warning}, {"note", Severity::Note}},
              "From where on findings make the status 1: error, warning or note (error).");
    check->footer("The exit status is 0 when nothing of that severity was found, 1 when something was, 2 when a file "
                  "can't be read.");
    return check;
}

} // namespace

int main(int argc, char** argv)
{
    std::set_terminate(rulemesh::EndWithoutMemory);
    CLI::App program("Rulemesh: a visual designer for data-migration mappings.");
    program.name("rulemesh");
    program.set_version_flag("--version", "rulemesh " RULEMESH_VERSION);
    program.footer("`rulemesh drive --help` tells how another program works the designer.");

    rulemesh::DriveOptions options;
    CLI::App* drive =
        program.add_subcommand("drive", "Run the designer without a window, from requests of one JSON object a line.");
    drive->add_option("FILE", options.Requests.File, "File with the requests; standard input when left out.");
    drive->add_flag("--strict", options.Requests.Strict,
                    "End with status 1 behind the first request that was not done.");
#ifdef RULEMESH_HAS_WINDOW
    drive->add_flag("--window", options.Window, "Show the designer in a window, and work it by mouse and key events.");
#endif
    drive->footer(
        "Each request is a JSON object on a line of its own and is answered by one:\n"
        "  {\"do\":\"let\",\"name\":\"TargetTable\",\"value\":\"salor101\"}\n"
        "  {\"ok\":true,\"happened\":[]}\n"
        "\n"
        "Host:  hello, create, load, save, let, get, call, resize, set, reply\n"
        "User:  click, tab, focus, leave, type, key, press, choose, row, tick, header, cell, scroll\n"
        "Look:  read, focused, state, xml\n"
        "\n"
        "The exit status is 0 at the end of the requests, 1 behind one that was not done (--strict), 2 when FILE can't "
        "be opened, 3 when an answer can't be\n"
        "written (a full disk, a reader that went away), 4 when the requests can't be read (a folder, a fault of the\n"
        "disk), 5 when even the answer that memory is short finds none. rulemesh(1) and docs/drive.md tell the whole "
        "protocol.");

    rulemesh::CheckOptions check;
    CLI::App* checks = AddCheck(program, check);

#ifdef RULEMESH_HAS_APPLICATION
    std::string alone;
    program.add_option("FILE", alone, "Short for open FILE; without FILE and command the application opens.");
    std::string object;
    CLI::App* open = program.add_subcommand("open", "Open the designer's application.");
    open->add_option("FILE", object, "File with the mapping object; a new window without one when left out.");
    program.require_subcommand(0, 1);
#else
    program.require_subcommand(1);
#endif
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return checks->parsed() && error.get_exit_code() != 0 ? WrongCommandLine(*checks, error) : program.exit(error);
    }
#ifdef RULEMESH_HAS_APPLICATION
    if (program.get_subcommands().empty())
        return OpenWithoutCommand(program, argv[0], alone);
    if (!alone.empty()) // a word before the command
        return Unknown(alone);
    if (open->parsed())
        return rulemesh::BecomeWindowProgram(argv[0], {rulemesh::WindowProgram::Open, object});
#endif
    if (checks->parsed())
        return rulemesh::RunCheck(check, std::cout, std::cerr);
    return rulemesh::RunDrive(options, argv[0]);
}
