#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "drive/session.h"

#ifdef RULEMESH_HAS_WINDOW
#include <QApplication>

#include "window/window_stage.h"
#endif

#ifdef RULEMESH_HAS_APPLICATION
#include "host/application.h"
#endif

namespace {

constexpr int CannotOpen = 2;

int Answer(rulemesh::Session& session, std::istream& requests)
{
    for (std::string line; std::getline(requests, line);)
        std::cout << session.Answer(line) << std::endl;
    return 0;
}

#ifdef RULEMESH_HAS_WINDOW
int AnswerInWindow(std::istream& requests)
{
    int count = 1;
    char name[] = "rulemesh";
    char* words[] = {name, nullptr};
    const QApplication application(count, words);
    rulemesh::Session session(std::make_unique<rulemesh::WindowStage>());
    return Answer(session, requests);
}
#endif

int Drive(const std::string& file, [[maybe_unused]] bool window)
{
    std::ifstream requests;
    if (!file.empty()) {
        requests.open(file, std::ios::binary);
        if (!requests) {
            std::cerr << "rulemesh: can't open " << file
                      << ": check the name, or leave it out to read standard input\n";
            return CannotOpen;
        }
    }
    std::istream& input = file.empty() ? std::cin : requests;
#ifdef RULEMESH_HAS_WINDOW
    if (window)
        return AnswerInWindow(input);
#endif
    rulemesh::Session session;
    return Answer(session, input);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App program("Rulemesh: a visual designer for data-migration mappings.");
    program.name("rulemesh");
    program.set_version_flag("--version", "rulemesh " RULEMESH_VERSION);
    program.require_subcommand(1);
    program.footer("`rulemesh drive --help` tells how another program works the designer.");

    std::string file;
    CLI::App* drive =
        program.add_subcommand("drive", "Run the designer without a window, from requests of one JSON object a line.");
    drive->add_option("FILE", file, "File with the requests; standard input when left out.");
    bool window = false;
#ifdef RULEMESH_HAS_WINDOW
    drive->add_flag("--window", window, "Show the designer in a window, and work it by mouse and key events.");
#endif
    drive->footer(
        "Each request is a JSON object on a line of its own and is answered by one:\n"
        "  {\"do\":\"let\",\"name\":\"TargetTable\",\"value\":\"salor101\"}\n"
        "  {\"ok\":true,\"happened\":[]}\n"
        "\n"
        "Host:  create, let, get, call, resize, set, reply\n"
        "User:  click, tab, focus, leave, type, key, press, choose, row, tick, header, cell, scroll\n"
        "Look:  read, focused, state, xml\n"
        "\n"
        "The exit status is 0 at the end of the requests. rulemesh(1) and docs/drive.md tell the whole protocol.");

#ifdef RULEMESH_HAS_APPLICATION
    std::string object;
    CLI::App* open = program.add_subcommand("open", "Open the designer's application.");
    open->add_option("FILE", object, "File with the mapping object; a new window without one when left out.");
#endif
    CLI11_PARSE(program, argc, argv);
#ifdef RULEMESH_HAS_APPLICATION
    if (open->parsed()) {
        int count = 1;
        return rulemesh::RunApplication(count, argv,
                                        object.empty() ? std::nullopt : std::optional(QString::fromStdString(object)));
    }
#endif
    return Drive(file, window);
}
