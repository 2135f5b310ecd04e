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

    const ScriptRecord element = object_.EnsureSourceTables();
    if (views_.lstSourceTables.Count() > 0)
        object_.SetScript(element, JoinRows(views_.lstSourceTables));

    views_.lstSourceFields.Sorted(true);
    views_.lstSourceFields.SortOrder(ListView::Order::Ascending);
    views_.lstSourceFields.SortKey(SourceField::Number);
}

void SourceTableList::AddAllParts()
{
    for (const Text& part : Split(object_.Read().GetSourceTablesText(), u','))
        views_.lstSourceTables.Add({WithoutLineEnds(part)});
}

void SourceTableList::AddMissingParts()
{
    ListView& list = views_.lstSourceTables;
    std::unordered_set<Text> known;
    for (int row = 1; row <= list.Count(); ++row)
        known.insert(list.TextAt(row, 0));
    for (const Text& part : Split(object_.Read().GetSourceTablesText(), u',')) {
        const Text StrClean = WithoutLineEnds(part);
        if (!TrimBlanks(StrClean).empty() && known.insert(StrClean).second)
            list.Add({StrClean});
    }
}

void SourceTableList::SourceTables(TextView i_SourceTables)
{
    const ScriptRecord element = object_.EnsureSourceTables();
    if (!element)
        throw Failure(FailureCode::ObjectVariableNotSet, u"The source tables can't be stored: the object is empty");
    object_.SetScript(element, i_SourceTables);
    RefreshSourceTables();
}

void SourceTableList::lstSourceTables_KeyDown(std::int16_t KeyCode)
{
    ListView& list = views_.lstSourceTables;
    const ListRow selected = list.SelectedRow();
    if (KeyCode != DeleteKey || selected == NoListRow)
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
