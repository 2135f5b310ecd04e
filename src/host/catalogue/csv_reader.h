#pragma once

#include <vector>

#include <QString>
#include <QStringList>

namespace rulemesh {

/// A row of a CSV file, and the line of the file that it begins in, from 1.
struct CsvRow {
    int Line = 0;
    QStringList Cells;

    friend bool operator==(const CsvRow&, const CsvRow&) = default;
};

/// The rows of a text of comma-separated values; empty lines are passed over. The separator is "," or ";", whichever
/// the first row has more of outside of quotes. A cell in quotes may hold separators, line ends and doubled quotes.
/// Raises HostError for quotes that aren't closed and for text behind a closing quote.
[[nodiscard]] std::vector<CsvRow> ReadCsv(const QString& text);

} // namespace rulemesh
