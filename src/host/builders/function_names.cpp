#include "host/builders/function_names.h"

#include <map>

#include <QRegularExpression>

#include "desktop/qt_text.h"
#include "object/object_copy.h"

namespace rulemesh {

namespace {

void AddNames(std::map<QString, QString>& names, const QString& text)
{
    static const QRegularExpression comment(QStringLiteral("\\|[^\n]*"));
    static const QRegularExpression call(QStringLiteral("(?<![\\w.])([A-Za-z_]\\w*)\\("));
    QString code = text;
    code.remove(comment);
    for (auto match = call.globalMatch(code); match.hasNext();) {
        const QString name = match.next().captured(1);
        names.emplace(name.toLower(), name);
    }
}

QStringList Sorted(const std::map<QString, QString>& names)
{
    QStringList sorted;
    for (const auto& [key, name] : names)
        sorted += name;
    return sorted;
}

} // namespace

QStringList FunctionNamesIn(const QString& text)
{
    std::map<QString, QString> names;
    AddNames(names, text);
    return Sorted(names);
}

QStringList FunctionNamesOf(const std::string& object)
{
    std::map<QString, QString> names = {{QStringLiteral("default"), QStringLiteral("default")}};
    const ObjectCopy copy(object);
    if (!copy.IsLoaded())
        return Sorted(names);
    for (const ScriptRecord& script : copy.Read().Scripts())
        AddNames(names, ToQt(script.Script()));
    for (const DumpRecord& dump : copy.Read().Dumps()) {
        for (const RuleRecord rule : dump.Rules())
            AddNames(names, ToQt(rule.Rule()));
    }
    return Sorted(names);
}

} // namespace rulemesh
