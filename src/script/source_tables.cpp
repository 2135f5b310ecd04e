#include "script/source_tables.h"

#include <unordered_set>

#include "base/failure.h"
#include "views/field_columns.h"

namespace rulemesh {

namespace {

constexpr std::int16_t DeleteKey = 46;

Text WithoutLineEnds(TextView text) { return Without(Without(text, u'\n'), u'\r'); }

// Leading empty rows leave no comma.
Text JoinRows(const ListView& list)
{
    Text StrJoined;
    for (int row = 1; row <= list.Count(); ++row) {
        if (!StrJoined.empty())
            StrJoined += u',';
        StrJoined += list.TextAt(row, 0);
    }
    return StrJoined;
}

} // namespace

void SourceTableList::RefreshSourceTables()
{
    if (views_.lstSourceTables.Count() == 0)
        AddAllParts();
    else
        AddMissingParts();

    const XmlNode element = FindOrAddElement();
    if (views_.lstSourceTables.Count() > 0)
        element.text(JoinRows(views_.lstSourceTables));

    views_.lstSourceFields.Sorted(true);
    views_.lstSourceFields.SortOrder(ListView::Order::Ascending);
    views_.lstSourceFields.SortKey(SourceField::Number);
}

void SourceTableList::AddAllParts()
{
    for (const Text& part : Split(document_.GetSourceTablesText(), u','))
        views_.lstSourceTables.Add({WithoutLineEnds(part)});
}

void SourceTableList::AddMissingParts()
{
    ListView& list = views_.lstSourceTables;
    std::unordered_set<Text> known;
    for (int row = 1; row <= list.Count(); ++row)
        known.insert(list.TextAt(row, 0));
    for (const Text& part : Split(document_.GetSourceTablesText(), u',')) {
        const Text StrClean = WithoutLineEnds(part);
        if (!TrimBlanks(StrClean).empty() && known.insert(StrClean).second)
            list.Add({StrClean});
    }
}

XmlNode SourceTableList::FindOrAddElement()
{
    const XmlNode element = document_.GetNode(document_.RootPath(u"SRCTBL"));
    if (element)
        return element;
    return AppendChild(document_.Document(), document_.Document().documentElement(), u"SRCTBL");
}

void SourceTableList::SourceTables(TextView i_SourceTables)
{
    const XmlNode element = FindOrAddElement();
    if (!element)
        throw Failure(FailureCode::ObjectVariableNotSet, u"The source tables can't be stored: the object is empty");
    element.text(i_SourceTables);
    RefreshSourceTables();
}

void SourceTableList::lstSourceTables_KeyDown(std::int16_t KeyCode)
{
    ListView& list = views_.lstSourceTables;
    const int selected = list.SelectedRow();
    if (KeyCode != DeleteKey || selected == 0)
        return;
    list.Remove(selected);
    // Joined from the last row to the first; the refresh writes the text again in the order of the rows.
    Text StrJoined;
    for (int row = list.Count(); row >= 1; --row)
        StrJoined.append(list.TextAt(row, 0)).append(u",");
    if (!StrJoined.empty())
        StrJoined.pop_back();
    SourceTables(StrJoined);
    RefreshSourceTables();
}

} // namespace rulemesh
