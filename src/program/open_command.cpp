#include "program/open_command.h"

#include <iostream>
#include <optional>

#include <QString>

#include "host/application.h"
#include "program/display.h"
#include "commands/exit_status.h"

namespace rulemesh {

int RunOpen(char* program, const std::string& file)
{
    if (!CanMakeWindows()) {
        std::cerr << "rulemesh: there is no display to open a window on (DISPLAY is not set)\n";
        return NoDisplay;
    }
    int count = 1;
    char* words[] = {program, nullptr};
    return RunApplication(count, words, file.empty() ? std::nullopt : std::optional(QString::fromStdString(file)));
}

} // namespace rulemesh
