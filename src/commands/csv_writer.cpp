#include "commands/csv_writer.h"

namespace rulemesh {

namespace {

constexpr char Guard = '\'';

std::string Quoted(std::string_view cell)
{
    if (cell.find_first_of(",\"\r\n") == std::string_view::npos)
        return std::string(cell);
    std::string quoted = "\"";
    for (const char character : cell) {
        if (character == '"')
            quoted += '"';
        quoted += character;
    }
    quoted += '"';
    return quoted;
}

bool NeedsGuard(std::string_view cell) noexcept
{
    return !cell.empty() && std::string_view("=+-@\t\r'").find(cell.front()) != std::string_view::npos;
}

} // namespace

std::string CsvRecord(const std::vector<std::string>& cells)
{
    std::string record;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front())
            record += ',';
        record += Quoted(NeedsGuard(cell) ? Guard + cell : cell);
    }
    return record + "\r\n";
}

std::string_view WithoutGuard(std::string_view cell) noexcept
{
    if (!cell.empty() && cell.front() == Guard)
        cell.remove_prefix(1);
    return cell;
}

} // namespace rulemesh
