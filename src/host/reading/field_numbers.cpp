#include "host/reading/field_numbers.h"

#include <cmath>
#include <optional>

#include "base/numbers.h"
#include "desktop/qt_text.h"
#include "document/xml_document.h"

namespace rulemesh {

namespace {

constexpr qsizetype MostNamed = 5;
constexpr double GreatestNumber = 32767;

bool IsPlace(const Text& number, int place)
{
    return IsNumeric(number) && std::abs(ToDouble(number)) <= GreatestNumber && ToInt16(number) == place;
}

QString Fault(XmlNode field, const std::optional<Text>& number, int place)
{
    return QStringLiteral("%1 %2 in place %3")
        .arg(ToQt(field.baseName()),
             number ? QStringLiteral("has No=\"%1\"").arg(ToQt(*number)) : QStringLiteral("has no No"))
        .arg(place);
}

QString FaultsOf(XmlNode table)
{
    QStringList faults;
    qsizetype more = 0;
    int place = 0;
    for (const XmlNode field : table.childNodes()) {
        const std::optional<Text> number = field.getNamedItem(u"No");
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
    XmlDocument document;
    if (!document.loadXML(object))
        return {};
    QStringList lines;
    for (const XmlNode side : document.documentElement().childNodes()) {
        if (side.baseName() != u"TARTAB")
            continue;
        for (const XmlNode table : side.childNodes()) {
            if (const QString faults = FaultsOf(table); !faults.isEmpty())
                lines += QStringLiteral("Table %1: %2.").arg(ToQt(table.baseName()), faults);
        }
    }
    return lines;
}

} // namespace rulemesh
