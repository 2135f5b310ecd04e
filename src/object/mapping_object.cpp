#include "object/mapping_object.h"

#include <algorithm>
#include <unordered_set>

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"

namespace rulemesh {

Text MappingObject::GetRuleText(std::int16_t IntDump, TextView StrField)
{
    if (const DumpRecord dump = reader_.GetDumpNode(IntDump)) {
        const RuleRecord rule = dump.Rule(ToUpper(StrField));
        return rule ? rule.Rule() : Text();
    }
    if (IntDump > 0)
        AppendChild(document_, document_.firstChild(), u"DUMP", u"No", PlainNumber(IntDump));
    return {};
}

Text MappingObject::GetDumpTargetTable(std::int16_t IntDump)
{
    const DumpRecord dump = reader_.GetDumpNode(IntDump);
    if (!dump)
        return state_.StrTargetTable;
    Text StrTable = dump.Table();
    if (!StrTable.empty())
        return StrTable;
    SetDumpTable(dump, state_.StrTargetTable);
    return state_.StrTargetTable;
}

TableRecord MappingObject::TableOfDump(std::int16_t IntDump)
{
    if (!state_.BoolMultiTarget)
        return reader_.TargetTable(state_.StrTargetTable);
    const Text StrTable = IntDump == 0 ? state_.StrTargetTable : GetDumpTargetTable(IntDump);
    return StrTable.empty() ? TableRecord() : reader_.TargetTable(StrTable);
}

bool MappingObject::SetNodeText(const Text& StrPath, TextView StrText, TextView StrKeyName, TextView StrKeyValue)
{
    const XmlNode node = access_.GetNode(StrPath, StrKeyName, StrKeyValue);
    if (node)
        node.text(StrText);
    return static_cast<bool>(node);
}

bool MappingObject::SetRootChildText(TextView StrName, TextView StrText)
{
    XmlNode node = access_.GetNode(access_.RootPath(StrName));
    if (!node)
        node = AppendChild(document_, document_.firstChild(), StrName);
    if (!node)
        throw Failure(FailureCode::ObjectVariableNotSet, Text(StrName) + u" can't be stored: the object is empty");
    node.text(StrText);
    return true;
}

void MappingObject::SetScript(const ScriptRecord& script, TextView StrText) { script.node_.text(StrText); }

bool MappingObject::SetQuery(TextView StrTable, TextView StrText)
{
    if (StrText.empty())
        return false;
    try {
        XmlNode query = access_.GetNode(access_.RootPath(u"QUERY"), u"ST", StrTable);
        if (!query)
            query = AppendChild(document_, document_.firstChild(), u"QUERY", u"ST", StrTable);
        query.text(StrText);
        return true;
    } catch (const Failure& failure) {
        access_.RecordError(failure.Number(), failure.Description() + u" in Saving Query", 0, u"");
        return false;
    }
}

ScriptRecord MappingObject::EnsureSourceTables()
{
    const XmlNode element = access_.GetNode(access_.RootPath(u"SRCTBL"));
    return ScriptRecord(element ? element : AppendChild(document_, document_.documentElement(), u"SRCTBL"));
}

bool MappingObject::SetNoteOf(const Record& record, TextView StrNote)
{
    return SetAttribute(record.node_, u"TEXT", StrNote);
}

DumpRecord MappingObject::CreateDumpNode(std::int16_t IntDump, TextView StrText)
{
    const XmlNode dump = AppendChild(document_, document_.firstChild(), u"DUMP", u"No", PlainNumber(IntDump));
    SetAttribute(dump, u"TXT", StrText);
    return DumpRecord(dump);
}

void MappingObject::EnsureDump(std::int16_t IntDump, TextView StrText)
{
    if (!reader_.GetDumpNode(IntDump))
        CreateDumpNode(IntDump, StrText);
}

void MappingObject::SetDumpTable(const DumpRecord& dump, TextView StrTable)
{
    dump.node_.setNamedItem(u"TT", StrTable);
}

void MappingObject::PruneQueries(const std::vector<Text>& StrTables)
{
    const std::unordered_set<Text> kept(StrTables.begin(), StrTables.end());
    const XmlNode root = document_.firstChild();
    for (const ScriptRecord& query : reader_.Queries()) {
        const std::optional<Text> StrTable = query.Table();
        if (!StrTable)
            throw Failure(FailureCode::ObjectVariableNotSet,
                          u"An element QUERY has no attribute ST, which names its table");
        if (!kept.contains(*StrTable))
            root.removeChild(query.node_);
    }
}

void MappingObject::PruneDumps(const std::vector<std::int16_t>& IntNumbers)
{
    const XmlNode root = document_.firstChild();
    for (const DumpRecord& dump : reader_.Dumps()) {
        const Text StrNumber = dump.Number();
        const std::int16_t IntDump =
            Telling([] { return u"The number (No) of an element DUMP"; }, [&] { return ToInt16(StrNumber); });
        if (std::find(IntNumbers.begin(), IntNumbers.end(), IntDump) == IntNumbers.end())
            root.removeChild(dump.node_);
    }
}

} // namespace rulemesh
