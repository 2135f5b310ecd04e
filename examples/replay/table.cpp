#include "table.h"

#include <algorithm>

namespace {

constexpr std::size_t WidestColumn = 56;
constexpr std::size_t WidestLine = 112; // of a text in a single column

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

// Characters, not bytes: the texts are UTF-8.
std::size_t Width(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

} // namespace

std::string OnOneLine(const std::string& text, std::size_t longest)
{
    std::string line;
    for (const char character : text) {
        if (character == '\n')
            line += " / ";
        else if (character != '\r')
            line.push_back(character == '\t' ? ' ' : character);
    }
    if (Width(line) <= longest)
        return line;
    std::size_t end = 0;
    for (std::size_t characters = 0; end < line.size(); ++end)
        if (StartsCharacter(line[end]) && ++characters > longest - 3)
            break;
    return line.substr(0, end) + "...";
}

std::string AsTable(const std::vector<std::vector<std::string>>& rows, const std::string& indent)
{
    std::size_t columns = 0;
    for (const std::vector<std::string>& row : rows)
        columns = std::max(columns, row.size());
    const std::size_t widest = columns == 1 ? WidestLine : WidestColumn;
    std::vector<std::size_t> widths(columns);
    for (const std::vector<std::string>& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], Width(OnOneLine(row[column], widest)));
    std::string table;
    for (const std::vector<std::string>& row : rows) {
        std::string line = indent;
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (widths[column] == 0)
                continue;
            const std::string text = OnOneLine(row[column], widest);
            line += text + std::string(widths[column] - Width(text) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        table += line + "\n";
    }
    return table;
}
