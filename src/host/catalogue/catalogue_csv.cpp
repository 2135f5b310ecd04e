#include "host/catalogue/catalogue_csv.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>

#include <QStringDecoder>

#include "base/case_map.h"
#include "desktop/qt_text.h"
#include "document/xml_characters.h"
#include "host/catalogue/csv_reader.h"
#include "host/files/host_error.h"
#include "object/field_types.h"
#include "object/names.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

// A file with one wrong column would fill the screen.
constexpr qsizetype MostComplaints = 20;

struct Letters {
    TextView Attribute;
    TextView Allowed;
};
constexpr auto TypeLetters = [] {
    std::array<char16_t, FieldTypes.size()> letters{};
    std::transform(FieldTypes.begin(), FieldTypes.end(), letters.begin(),
                   [](const FieldTypeEntry& type) { return type.Letter; });
    return letters;
}();
constexpr std::array<Letters, 4> LetterColumns = {
    {{u"MAN", u"YN"}, {u"TYPE", {TypeLetters.data(), TypeLetters.size()}}, {u"ADJU", u"NRLC"}, {u"CASE", u"NUL"}}};
constexpr std::array<TextView, 5> NumberColumns = {u"No", u"FNo", u"LENG", u"DIGB", u"DIGA"};

bool IsDecimal(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString Decoded(const QByteArray& bytes)
{
    const auto found = QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8);
    if (found == QStringConverter::Utf8 && !bytes.isValidUtf8())
        throw HostError(QStringLiteral("The file is not UTF-8. Store it as \"CSV UTF-8\"."));
    return QStringDecoder(found)(bytes);
}

// The fields of one table while they are read, with what orders them.
struct TableRows {
    struct Row {
        int Line;
        std::optional<qlonglong> No;
        CatalogueField Field;
    };
    bool Source = false;
    Text Code;
    std::vector<Row> Rows;
};

class CatalogueReader {
public:
    explicit CatalogueReader(const std::vector<CsvRow>& rows) : rows_(rows) {}

    Catalogue Read()
    {
        ReadHeader();
        for (auto row = rows_.begin() + 1; row != rows_.end(); ++row)
            ReadField(*row);
        Catalogue catalogue;
        for (TableRows& table : tables_)
            (table.Source ? catalogue.Sources : catalogue.Targets).push_back(Ordered(table));
        if (!complaints_.isEmpty())
            throw HostError(Told());
        return catalogue;
    }

private:
    void Complain(int line, const QString& what) { complaints_ += QStringLiteral("Line %1: %2").arg(line).arg(what); }

    [[nodiscard]] QString Told() const
    {
        QStringList told = complaints_.first(std::min(complaints_.size(), MostComplaints));
        if (complaints_.size() > told.size())
            told += QStringLiteral("... and %1 more.").arg(complaints_.size() - told.size());
        return told.join(u'\n');
    }

    void ReadHeader();
    void ReadField(const CsvRow& row);
    void ReadAttributes(const CsvRow& row, CatalogueField& field);
    [[nodiscard]] QString Cell(const CsvRow& row, const QString& column) const;
    TableRows& TableOf(bool source, const Text& code);
    CatalogueTable Ordered(TableRows& table);

    const std::vector<CsvRow>& rows_;
    std::map<QString, qsizetype> columns_; // by name in lower case
    std::vector<TableRows> tables_;
    QStringList complaints_;
};

void CatalogueReader::ReadHeader()
{
    if (rows_.empty())
        throw HostError(
            QStringLiteral("The file is empty. Its first line must name the columns: side,table,field,..."));
    const CsvRow& header = rows_.front();
    std::set<QString> known = {QStringLiteral("side"), QStringLiteral("table"), QStringLiteral("field")};
    for (const TextView attribute : FieldAttributes)
        known.insert(ToQt(attribute).toLower());
    for (qsizetype column = 0; column < header.Cells.size(); ++column) {
        const QString name = header.Cells[column].trimmed().toLower();
        if (name.isEmpty())
            continue;
        if (!known.contains(name))
            Complain(header.Line,
                     QStringLiteral("there is no column \"%1\". Leave it out, or see the documentation for "
                                    "the names of the columns.")
                         .arg(header.Cells[column]));
        else if (!columns_.emplace(name, column).second)
            Complain(header.Line, QStringLiteral("the column \"%1\" stands here twice. Take one out.").arg(name));
    }
    for (const QString& name : {QStringLiteral("side"), QStringLiteral("table"), QStringLiteral("field")}) {
        if (!columns_.contains(name))
            Complain(header.Line, QStringLiteral("the column \"%1\" is missing. The first line must name the columns, "
                                                 "such as side,table,field,TYPE,LENG.")
                                      .arg(name));
    }
    if (!complaints_.isEmpty())
        throw HostError(Told());
}

QString CatalogueReader::Cell(const CsvRow& row, const QString& column) const
{
    const auto found = columns_.find(column);
    return found == columns_.end() ? QString() : row.Cells.value(found->second);
}

TableRows& CatalogueReader::TableOf(bool source, const Text& code)
{
    const auto found = std::find_if(tables_.begin(), tables_.end(),
                                    [&](const TableRows& t) { return t.Source == source && t.Code == code; });
    if (found != tables_.end())
        return *found;
    return tables_.emplace_back(TableRows{.Source = source, .Code = code, .Rows = {}});
}

void CatalogueReader::ReadField(const CsvRow& row)
{
    if (std::all_of(row.Cells.begin(), row.Cells.end(), [](const QString& cell) { return cell.isEmpty(); }))
        return; // the empty rows that spreadsheets leave behind
    const auto overhang = static_cast<qsizetype>(rows_.front().Cells.size());
    if (row.Cells.size() > overhang)
        return Complain(row.Line, QStringLiteral("the row has %1 cells, but the first line names %2 columns. Put cells "
                                                 "that hold a separator in quotes.")
                                      .arg(row.Cells.size())
                                      .arg(overhang));
    const QString side = Cell(row, QStringLiteral("side")).toLower();
    if (side != u"source" && side != u"target")
        return Complain(row.Line, QStringLiteral("the side is \"%1\". Write \"source\" or \"target\".")
                                      .arg(Cell(row, QStringLiteral("side"))));
    const QString table = Cell(row, QStringLiteral("table"));
    const Text code = ToUpper(FromQt(table));
    if (!IsTableCode(code) || !xml::IsName(table.toUtf8().toStdString()))
        return Complain(row.Line,
                        QStringLiteral("\"%1\" is no table code. A code has five characters that are no digits "
                                       "and then three digits, such as custs001.")
                            .arg(table));
    const QString name = Cell(row, QStringLiteral("field"));
    CatalogueField field{.Name = ToUpper(FieldNodeName(FromQt(name))), .Attributes = {}};
    if (!xml::IsName(ToQt(field.Name).toUtf8().toStdString()))
        return Complain(row.Line, QStringLiteral("\"%1\" can't name a field. A name begins with a letter and holds "
                                                 "letters, digits and \"_\"; an index is written price(1).")
                                      .arg(name));
    ReadAttributes(row, field);
    const QString number = Cell(row, QStringLiteral("no"));
    TableOf(side == u"source", code)
        .Rows.push_back(
            {row.Line, IsDecimal(number) ? std::optional(number.toLongLong()) : std::nullopt, std::move(field)});
}

void CatalogueReader::ReadAttributes(const CsvRow& row, CatalogueField& field)
{
    for (const TextView attribute : FieldAttributes) {
        QString value = Cell(row, ToQt(attribute).toLower());
        if (value.isEmpty())
            continue;
        for (const Letters& column : LetterColumns) {
            if (column.Attribute != attribute)
                continue;
            value = value.toUpper();
            if (value.size() != 1 || !ToQt(column.Allowed).contains(value))
                Complain(row.Line, QStringLiteral("%1 is \"%2\". Write one of the letters %3, or nothing.")
                                       .arg(ToQt(attribute), value, ToQt(column.Allowed)));
        }
        if (std::find(NumberColumns.begin(), NumberColumns.end(), attribute) != NumberColumns.end() &&
            !IsDecimal(value))
            Complain(row.Line,
                     QStringLiteral("%1 is \"%2\". Write a whole number, or nothing.").arg(ToQt(attribute), value));
        field.Attribute(attribute, FromQt(value));
    }
}

// Rows that say their number come in its order, the others where they stand; then all are numbered without gaps.
CatalogueTable CatalogueReader::Ordered(TableRows& table)
{
    std::map<Text, int> lines;
    std::map<qlonglong, int> numbers;
    for (const TableRows::Row& row : table.Rows) {
        const auto [first, isNew] = lines.emplace(row.Field.Name, row.Line);
        if (!isNew)
            Complain(row.Line, QStringLiteral("the field %1 of %2 stands in line %3 already. Take one of them out.")
                                   .arg(ToQt(row.Field.Name), ToQt(table.Code))
                                   .arg(first->second));
        if (!row.No)
            continue;
        const auto [other, isFree] = numbers.emplace(*row.No, row.Line);
        if (!isFree)
            Complain(row.Line, QStringLiteral("No %1 of %2 is used in line %3 already. Give each field a number of its "
                                              "own, or leave the column empty.")
                                   .arg(*row.No)
                                   .arg(ToQt(table.Code))
                                   .arg(other->second));
    }
    const bool allNumbered = numbers.size() == table.Rows.size();
    if (!numbers.empty() && !allNumbered)
        Complain(table.Rows.front().Line,
                 QStringLiteral("some fields of %1 have a No and some have none. Fill the column "
                                "for all of them or for none.")
                     .arg(ToQt(table.Code)));
    if (allNumbered)
        std::stable_sort(table.Rows.begin(), table.Rows.end(),
                         [](const auto& one, const auto& other) { return one.No < other.No; });

    CatalogueTable ordered{.Code = table.Code, .Fields = {}};
    for (TableRows::Row& row : table.Rows)
        ordered.Fields.push_back(std::move(row.Field));
    return ordered;
}

// Every field has a number in the lists; a target field also has its place among the rules.
void Number(std::vector<CatalogueTable>& tables, bool targets)
{
    for (CatalogueTable& table : tables) {
        if (targets)
            NumberFields(table);
        qsizetype place = 0;
        for (CatalogueField& field : table.Fields) {
            ++place;
            if (field.Attribute(u"FNo").empty())
                field.Attribute(u"FNo", FromQt(QString::number(place)));
        }
    }
}

} // namespace

Catalogue ReadCatalogueCsv(const QByteArray& bytes)
{
    QString text = Decoded(bytes);
    Catalogue catalogue = CatalogueReader(ReadCsv(text)).Read();
    if (catalogue.Sources.empty() && catalogue.Targets.empty())
        throw HostError(QStringLiteral("The file names columns, but no field. Add a line for each field."));
    Number(catalogue.Sources, false);
    Number(catalogue.Targets, true);
    return catalogue;
}

} // namespace rulemesh
