#include "desktop/accessible_names.h"

#include <map>

#include "desktop/captions.h"
#include "views/button.h"

namespace rulemesh {

QString AccessibleName(const View& view)
{
    // Captions that say too little away from their place, and views that have none.
    static const std::map<TextView, QString> names = {
        {u"MainTab", QStringLiteral("Designer")},
        {u"lstSourceTables", QStringLiteral("Source tables")},
        {u"CmdSelectSource", QStringLiteral("Select source tables")},
        {u"cmdSrcEdit", QStringLiteral("Edit source tables in the editor")},
        {u"txtPreCondition", QStringLiteral("Precondition")},
        {u"CmdBuildPre", QStringLiteral("Build precondition")},
        {u"CmdPreEditor", QStringLiteral("Precondition in the editor")},
        {u"CmdPreDoc", QStringLiteral("Note of the precondition")},
        {u"PicPreResize", QStringLiteral("Enlarge or reduce the precondition")},
        {u"lstMigrateSource", QStringLiteral("Main queries")},
        {u"txtMainQuery", QStringLiteral("Main query")},
        {u"cmdBuildMQ", QStringLiteral("Build main query")},
        {u"CmdMqEditor", QStringLiteral("Main query in the editor")},
        {u"CmdMQDoc", QStringLiteral("Note of the main query")},
        {u"PicMQResize", QStringLiteral("Enlarge or reduce the main query")},
        {u"CmdFuncEditor", QStringLiteral("Panel text in the editor")},
        {u"txtFunctions", QStringLiteral("Functions")},
        {u"txtVariables", QStringLiteral("Variables and includes")},
        {u"CmbDump", QStringLiteral("Dump")},
        {u"CmbTargetTable", QStringLiteral("Target table")},
        {u"lstTargetFields", QStringLiteral("Target fields")},
        {u"lstSourceFields", QStringLiteral("Source fields")},
        {u"RulesGrid", QStringLiteral("Rules")},
        {u"txtgrdline", QStringLiteral("Rule")},
        {u"TxtDoc", QStringLiteral("Note")},
    };
    const auto named = names.find(view.Name());
    if (named != names.end())
        return named->second;
    const auto* captioned = dynamic_cast<const CaptionedView*>(&view);
    return captioned == nullptr ? QString() : WithoutAccessKey(captioned->Caption());
}

} // namespace rulemesh
