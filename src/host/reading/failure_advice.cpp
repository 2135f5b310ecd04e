#include "host/reading/failure_advice.h"

#include <algorithm>

#include "base/failure.h"
#include "base/numbers.h"
#include "desktop/qt_text.h"
#include "host/reading/field_numbers.h"
#include "host/reading/script_statements.h"
#include "object/object_copy.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

namespace {

// A script as its box shows it, and as the object holds it.
struct Script {
    QString Name;
    Text Shown;
    Text Stored;
    QString List; // what stores the box where leaving it can't; "" for nothing
};

Script ScriptOf(const QString& name, const TextBox& box, bool isShown, const Text& stored)
{
    return {name, isShown ? box.Text() : stored, stored, {}};
}

std::vector<Script> ScriptsOf(ctlRulemesh& control, const MappingReader& object)
{
    const DesignerViews& views = control.Views();
    std::vector<Script> scripts = {
        ScriptOf(QStringLiteral("The precondition"), views.txtPreCondition, true, object.GetPreconditionText()),
        ScriptOf(QStringLiteral("The functions"), views.txtFunctions, views.txtFunctions.Visible(),
                 object.GetFunctionsText())};
    for (const Text& table : control.State().StrMigrateTables) {
        scripts.push_back(ScriptOf(QStringLiteral("The main query of %1").arg(ToQt(table)), views.txtMainQuery,
                                   control.State().QueryTable.Written() == table, object.GetQueryText(table)));
        scripts.back().List = QStringLiteral("migrate %1").arg(ToQt(table));
    }
    return scripts;
}

QStringList DumpsPastAnyNumber(const std::vector<Script>& scripts)
{
    QStringList lines;
    for (const Script& script : scripts) {
        const bool inBox = !DumpsPast16Bits(script.Shown).empty();
        for (const PlacedWord& dump : DumpsPast16Bits(inBox ? script.Shown : script.Stored)) {
            const QString place = QStringLiteral("dump %1 in line %2").arg(ToQt(dump.Word)).arg(dump.Line);
            lines +=
                inBox ? QStringLiteral("%1 names %2. A dump has a number from 1 to 999: with this one no script can "
                                       "be stored by leaving it, and the object can't be saved. Correct it there.")
                            .arg(script.Name, place)
                      : QStringLiteral("%1 is still stored with %2, though its box is right.").arg(script.Name, place);
        }
    }
    const auto query = std::find_if(scripts.begin(), scripts.end(), [](const Script& script) {
        return !script.List.isEmpty() && !DumpsPast16Bits(script.Stored).empty();
    });
    if (query != scripts.end())
        lines += QStringLiteral("When it is right, click \"%1\" in the list Main Query, once more after this box if it "
                                "comes again: that stores the script.")
                     .arg(query->List);
    return lines;
}

QStringList FaultyDumps(const MappingReader& object)
{
    QStringList lines;
    for (const DumpRecord& dump : object.Dumps()) {
        const Text number = dump.Number();
        try {
            (void)ToInt16(number);
        } catch (const Failure&) {
            lines +=
                QStringLiteral("An element DUMP has No=\"%1\", which is no number of a dump. Correct it in the file "
                               "with a text editor and open the file again.")
                    .arg(ToQt(number));
        }
    }
    return lines;
}

QStringList QueriesWithoutTable(const MappingReader& object)
{
    for (const ScriptRecord& query : object.Queries()) {
        if (!query.Table())
            return {
                QStringLiteral("An element QUERY has no attribute ST, which names the table of a script; with it the "
                               "object can't be saved. Correct it in the file with a text editor and open the file "
                               "again.")};
    }
    return {};
}

QStringList FaultyFields(const std::string& object)
{
    QStringList lines = FaultyFieldNumbers(object);
    if (!lines.isEmpty())
        lines += QStringLiteral("Give each field the number of its place, 1, 2, 3 and so on, in the file.");
    return lines;
}

} // namespace

QStringList FailureAdvice(ctlRulemesh& control, int number)
{
    const std::string text = control.DocumentAsItStands();
    const ObjectCopy copy(text);
    if (!copy.IsLoaded())
        return {};
    const MappingReader& object = copy.Read();
    switch (static_cast<FailureCode>(number)) {
    case FailureCode::Overflow:
        return DumpsPastAnyNumber(ScriptsOf(control, object)) + FaultyDumps(object) + FaultyFields(text);
    case FailureCode::TypeMismatch:
        return FaultyDumps(object) + FaultyFields(text);
    case FailureCode::InvalidPropertyArrayIndex:
        return FaultyFields(text);
    case FailureCode::ObjectVariableNotSet:
        return QueriesWithoutTable(object);
    default:
        return {};
    }
}

} // namespace rulemesh
