#include "host/builders/function_names.h"

#include <map>

#include <QRegularExpression>

#include "desktop/qt_text.h"
#include "document/xml_document.h"

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
    XmlDocument document;
    if (!document.loadXML(object))
        return Sorted(names);
    const Text root = u"/" + document.documentElement().baseName();
    for (const TextView path : {u"/PREC", u"/FUNCTIONS", u"/QUERY"}) {
        for (const XmlNode& script : document.selectNodes(root + Text(path)))
            AddNames(names, ToQt(script.text()));
    }
    for (const XmlNode& dump : document.selectNodes(root + u"/DUMP")) {
        for (const XmlNode& rule : dump.childNodes())
            AddNames(names, ToQt(rule.text()));
    }
    return Sorted(names);
}

} // namespace rulemesh
