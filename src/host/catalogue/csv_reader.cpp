#include "host/catalogue/csv_reader.h"

#include <utility>

#include "host/files/host_error.h"

namespace rulemesh {

namespace {

QChar SeparatorOf(const QString& text)
{
    qsizetype commas = 0;
    qsizetype semicolons = 0;
    bool quoted = false;
    for (const QChar c : text) {
        if (c == u'"')
            quoted = !quoted;
        else if (!quoted && c == u'\n' && commas + semicolons > 0)
            break;
        else if (!quoted && c == u',')
            ++commas;
        else if (!quoted && c == u';')
            ++semicolons;
    }
    return semicolons > commas ? u';' : u',';
}

class CsvParser {
public:
    explicit CsvParser(const QString& text) : text_(text), separator_(SeparatorOf(text)) {}

    std::vector<CsvRow> Rows()
    {
        while (at_ < text_.size())
            ReadRow();
        return std::move(rows_);
    }

private:
    [[nodiscard]] QChar Here() const { return at_ < text_.size() ? text_[at_] : QChar(u'\n'); }

    void ReadRow()
    {
        CsvRow row{.Line = line_, .Cells = {}};
        for (;;) {
            row.Cells += Here() == u'"' ? QuotedCell() : PlainCell();
            if (Here() != separator_)
                break;
            ++at_;
        }
        if (Here() == u'\r')
            ++at_;
        ++at_; // the line feed
        ++line_;
        if (row.Cells.size() > 1 || !row.Cells.front().isEmpty())
            rows_.push_back(std::move(row));
    }

    QString PlainCell()
    {
        const qsizetype from = at_;
        while (Here() != separator_ && Here() != u'\n')
            ++at_;
        qsizetype end = at_;
        if (end > from && end < text_.size() && text_[end] == u'\n' && text_[end - 1] == u'\r')
            --end;
        return text_.sliced(from, end - from).trimmed();
    }

    QString QuotedCell()
    {
        const int opened = line_;
        QString cell;
        for (++at_;; ++at_) {
            if (at_ >= text_.size())
                throw HostError(QStringLiteral("Line %1: the cell that begins with a quote here is never closed. Put a "
                                               "quote behind it; a quote inside of a cell is written twice.")
                                    .arg(opened));
            if (Here() == u'\n')
                ++line_;
            if (Here() != u'"') {
                cell += Here();
                continue;
            }
            ++at_;
            if (at_ >= text_.size() || Here() != u'"')
                break;
            cell += u'"';
        }
        while (Here() == u' ')
            ++at_;
        if (Here() != separator_ && Here() != u'\n' && Here() != u'\r')
            throw HostError(
                QStringLiteral("Line %1: something stands behind the closing quote of a cell. A quote inside "
                               "of a cell is written twice.")
                    .arg(line_));
        return cell;
    }

    const QString& text_;
    QChar separator_;
    qsizetype at_ = 0;
    int line_ = 1;
    std::vector<CsvRow> rows_;
};

} // namespace

std::vector<CsvRow> ReadCsv(const QString& text) { return CsvParser(text).Rows(); }

} // namespace rulemesh
