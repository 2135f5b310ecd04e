#include "host/reading/field_numbers.h"

#include <cmath>
#include <optional>

#include "base/numbers.h"
#include "desktop/qt_text.h"
#include "object/object_copy.h"

namespace rulemesh {

namespace {

constexpr qsizetype MostNamed = 5;
constexpr double GreatestNumber = 32767;

bool IsPlace(const Text& number, int place)
{
    return IsNumeric(number) && std::abs(ToDouble(number)) <= GreatestNumber && ToInt16(number) == place;
}

QString Fault(const FieldRecord& field, const std::optional<Text>& number, int place)
{
    return QStringLiteral("%1 %2 in place %3")
        .arg(ToQt(field.Name()),
             number ? QStringLiteral("has No=\"%1\"").arg(ToQt(*number)) : QStringLiteral("has no No"))
        .arg(place);
}

QString FaultsOf(const TableRecord& table)
{
    QStringList faults;
    qsizetype more = 0;
    int place = 0;
    for (const FieldRecord field : table.Fields()) {
        const std::optional<Text> number = field.Number();
        if (IsPlace(number.value_or(Text()), ++place))
            continue;
        if (faults.size() < MostNamed)
            faults += Fault(field, number, place);
        else
            ++more;
    }
    if (more > 0)
        faults += QStringLiteral("and %1 more").arg(more);
    return faults.join(QStringLiteral(", "));
}

} // namespace

QStringList FaultyFieldNumbers(const std::string& object)
{
    const ObjectCopy copy(object);
    if (!copy.IsLoaded())
        return {};
    QStringList lines;
    for (const TableRecord& table : copy.Read().TargetTables()) {
        if (const QString faults = FaultsOf(table); !faults.isEmpty())
            lines += QStringLiteral("Table %1: %2.").arg(ToQt(table.Name()), faults);
    }
    return lines;
}

} // namespace rulemesh
