// The designer without a front end: opens an object, lets Guess fill one dump, and prints its rules.
//
//   embed_core FILE TARGET-TABLE DUMP

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "console_host.h"
#include "shell/ctl_rulemesh.h"

int main(int count, char** words)
try {
    if (count != 4)
        throw std::runtime_error("usage: embed_core FILE TARGET-TABLE DUMP");
    std::ifstream file(words[1], std::ios::binary);
    ConsolePlatform platform;
    ConsoleEvents events;
    rulemesh::ctlRulemesh control(platform, events);
    control.TargetTable(rulemesh::FromUtf8(words[2]));
    control.Edit(true);
    control.MappingObjectXML(std::string(std::istreambuf_iterator<char>(file), {}));
    control.ShowControl();

    rulemesh::DesignerViews& views = control.Views();
    views.MainTab.UserClicksTab(1);
    const auto& dumps = views.CmbDump.Entries();
    const auto dump = std::ranges::find(dumps, std::stoi(words[3]), &rulemesh::ComboBox::Entry::Data);
    if (dump == dumps.end())
        throw std::runtime_error("no such dump");
    views.CmbDump.UserChooses(static_cast<int>(dump - dumps.begin()));
    views.CmdGuess.UserClicks();
    for (int row = 0; row < views.RulesGrid.Rows(); ++row)
        std::cout << rulemesh::ToUtf8(views.RulesGrid.TextMatrix(row, 0))
                  << " := " << rulemesh::ToUtf8(views.RulesGrid.TextMatrix(row, 1)) << '\n';
    if (events.MaySave)
        std::cout << control.MappingObjectXmlUtf8().size() << " bytes to store\n";
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "embed_core: " << failure.what() << '\n';
    return 1;
}
