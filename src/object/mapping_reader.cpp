#include "object/mapping_reader.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"

namespace rulemesh {

Text MappingReader::RootName() const
{
    const XmlNode root = document_.documentElement();
    return root ? root.baseName() : Text();
}

Text MappingReader::GetQueryText(TextView StrTable) const
{
    return access_.GetNodeText(access_.RootPath(u"QUERY"), u"ST", StrTable);
}

ScriptRecord MappingReader::Precondition() const { return ScriptRecord(access_.GetNode(access_.RootPath(u"PREC"))); }

ScriptRecord MappingReader::Query(TextView StrTable) const
{
    return ScriptRecord(access_.GetNode(access_.RootPath(u"QUERY"), u"ST", StrTable));
}

std::vector<ScriptRecord> MappingReader::Queries() const
{
    const std::vector<XmlNode> nodes = document_.selectNodes(access_.RootPath(u"QUERY"));
    return {nodes.begin(), nodes.end()};
}

std::vector<ScriptRecord> MappingReader::Scripts() const
{
    std::vector<ScriptRecord> scripts;
    for (const TextView name : {u"PREC", u"FUNCTIONS", u"QUERY"}) {
        for (const XmlNode& node : document_.selectNodes(access_.RootPath(name)))
            scripts.emplace_back(node);
    }
    return scripts;
}

TableRecord MappingReader::SourceTable(TextView StrTable) const
{
    return TableRecord(access_.GetNode(access_.RootPath(u"SRCTAB/" + ToUpper(StrTable))));
}

TableRecord MappingReader::TargetTable(TextView StrTable) const
{
    return TableRecord(access_.GetNode(access_.RootPath(u"TARTAB/" + ToUpper(StrTable))));
}

std::vector<TableRecord> MappingReader::TargetTables() const
{
    std::vector<TableRecord> tables;
    for (const XmlNode& catalogue : document_.selectNodes(access_.RootPath(u"TARTAB"))) {
        for (XmlNode table = catalogue.firstChild(); table; table = table.nextSibling())
            tables.emplace_back(table);
    }
    return tables;
}

XmlNode MappingReader::MscriptNode() const
{
    try {
        return document_.selectSingleNode(access_.RootPath(u"MSCRIPT"));
    } catch (const Failure&) {
        // Recording the error fails on its own default number.
        throw Failure(FailureCode::TypeMismatch,
                      u"The target table " + Quoted(access_.TargetTable()) + u" can't stand in a path");
    }
}

std::vector<Text> MappingReader::TablesOnOffer() const
{
    std::vector<Text> tables;
    const XmlNode offer = MscriptNode();
    for (XmlNode table = offer ? offer.firstChild() : XmlNode(); table; table = table.nextSibling())
        tables.push_back(table.baseName());
    return tables;
}

DumpRecord MappingReader::GetDumpNode(std::int16_t IntDump) const
{
    return DumpRecord(access_.GetNode(access_.RootPath(u"DUMP"), u"No", PlainNumber(IntDump)));
}

std::vector<DumpRecord> MappingReader::Dumps() const
{
    const std::vector<XmlNode> nodes = document_.selectNodes(access_.RootPath(u"DUMP"));
    return {nodes.begin(), nodes.end()};
}

std::size_t MappingReader::CountDumpElements() const { return document_.getElementsByTagName(u"DUMP").size(); }

Text MappingReader::GetDumpTargetDescription(std::int16_t IntDump) const
{
    const DumpRecord dump = GetDumpNode(IntDump);
    return dump ? dump.Description() : Text();
}

} // namespace rulemesh
