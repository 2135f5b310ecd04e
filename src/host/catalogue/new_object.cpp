#include "host/catalogue/new_object.h"

#include <algorithm>

#include <QXmlStreamWriter>

#include "base/case_map.h"
#include "desktop/qt_text.h"
#include "document/xml_characters.h"
#include "host/files/host_error.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

// A character that XML can't hold would make the object unreadable.
QString Writable(TextView text)
{
    QString writable;
    for (const char32_t point : ToQt(text).toUcs4())
        writable += xml::IsCharacter(point) ? QString::fromUcs4(&point, 1) : QString(QChar::ReplacementCharacter);
    return writable;
}

void WriteTables(QXmlStreamWriter& writer, const char* side, std::vector<CatalogueTable> tables, bool numbered)
{
    writer.writeStartElement(QString::fromLatin1(side));
    for (CatalogueTable& table : tables) {
        if (numbered)
            NumberFields(table);
        writer.writeStartElement(ToQt(ToUpper(table.Code)));
        for (const CatalogueField& field : table.Fields) {
            writer.writeEmptyElement(ToQt(field.Name));
            for (const auto& [name, value] : field.Attributes)
                writer.writeAttribute(ToQt(name), Writable(value));
        }
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

QString Codes(const std::vector<CatalogueTable>& tables)
{
    QStringList codes;
    for (const CatalogueTable& table : tables)
        codes += ToQt(table.Code);
    return codes.isEmpty() ? QStringLiteral("none") : codes.join(QStringLiteral(", "));
}

void RequireTarget(const NewObjectPlan& plan, const Text& code)
{
    if (FindTable(plan.Tables.Targets, code) == nullptr)
        throw HostError(QStringLiteral("The catalogue has no target table %1. Its target tables: %2.")
                            .arg(ToQt(code), Codes(plan.Tables.Targets)));
}

} // namespace

QByteArray MakeNewObject(const NewObjectPlan& plan)
{
    if (!IsTableCode(plan.Target) || !xml::IsName(ToQt(plan.Target).toUtf8().toStdString()))
        throw HostError(
            QStringLiteral("\"%1\" is no table code. A code has five characters that are no digits and then "
                           "three digits, such as partn101.")
                .arg(ToQt(plan.Target)));
    RequireTarget(plan, plan.Target);
    for (const Text& code : plan.TargetChoice)
        RequireTarget(plan, code);

    QByteArray object;
    QXmlStreamWriter writer(&object);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(2);
    writer.writeStartElement(ToQt(plan.Target));
    writer.writeEmptyElement(QStringLiteral("SRCTBL"));
    writer.writeEmptyElement(QStringLiteral("PREC"));
    writer.writeAttribute(QStringLiteral("TEXT"), QString());
    if (plan.TargetChoice.size() > 1) {
        writer.writeStartElement(QStringLiteral("MSCRIPT"));
        for (const Text& code : plan.TargetChoice)
            writer.writeEmptyElement(ToQt(ToUpper(code)));
        writer.writeEndElement();
    }
    WriteTables(writer, "SRCTAB", plan.Tables.Sources, false);
    WriteTables(writer, "TARTAB", plan.Tables.Targets, true);
    writer.writeEndElement();
    return object.trimmed() + '\n';
}

} // namespace rulemesh
