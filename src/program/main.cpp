#include <fstream>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "drive/session.h"

namespace {

constexpr int CannotOpen = 2;

int Drive(const std::string& file)
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
    rulemesh::Session session;
    for (std::string line; std::getline(input, line);)
        std::cout << session.Answer(line) << std::endl;
    return 0;
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
    CLI11_PARSE(program, argc, argv);
    return Drive(file);
}
