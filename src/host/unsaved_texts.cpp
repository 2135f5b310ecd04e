#include "host/unsaved_texts.h"

#include "base/case_map.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "document/document_access.h"
#include "document/names.h"
#include "document/xml_characters.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

namespace {

constexpr int RulesTab = 1;

// A rule cell that no rule ever reached holds one blank.
constexpr TextView UntouchedRule = u" ";

void Put(XmlNode node, const Text& text, CarriageReturns returns = CarriageReturns::AsLineEnds)
{
    // A box shows the stored text decoded and with line ends of its own; what reads the same is not written.
    if (node && node.text() != text && DecodeEntities(node.text()) != text)
        node.text(text, returns);
}

XmlNode ChildOrNew(XmlDocument& document, TextView name)
{
    const XmlNode root = document.documentElement();
    const XmlNode child = root.selectSingleNode(name);
    return child ? child : AppendChild(document, root, name);
}

XmlNode Keyed(const XmlDocument& document, TextView name, TextView key, TextView value)
{
    if (value.find(u'\'') != TextView::npos)
        return {}; // no save finds such a key
    return document.selectSingleNode(u"/" + document.documentElement().baseName() + u"/" + Text(name), key, value);
}

void PutQuery(XmlDocument& document, const UnsavedTexts& texts)
{
    if (texts.QueryTable.empty() || texts.Query.empty())
        return;
    XmlNode query = Keyed(document, u"QUERY", u"ST", texts.QueryTable);
    if (!query)
        query = AppendChild(document, document.documentElement(), u"QUERY", u"ST", texts.QueryTable);
    Put(query, texts.Query);
}

void PutRule(XmlDocument& document, XmlNode dump, const Text& field, const Text& rule)
{
    if (!xml::IsName(ToUtf8(field)))
        return; // a host may write over a row's key
    XmlNode record = dump.selectSingleNode(field);
    const Text stored = record ? record.text() : Text();
    if (rule == stored || (stored.empty() && rule == UntouchedRule))
        return;
    if (rule.empty()) {
        dump.removeChild(record);
        return;
    }
    if (!record)
        record = AppendChild(document, dump, field, u"TEXT", u"");
    record.text(rule, CarriageReturns::Kept);
    SetAttribute(record, u"TYPE", rule.find(LineEnd) == Text::npos ? u"0" : u"1");
}

void PutRules(XmlDocument& document, const UnsavedTexts& texts)
{
    if (!texts.Dump || !IsNumeric(*texts.Dump))
        return;
    const XmlNode dump = Keyed(document, u"DUMP", u"No", PlainNumber(LeadingNumber(*texts.Dump)));
    if (!dump)
        return;
    for (const auto& [key, rule] : texts.Rules)
        PutRule(document, dump, ToUpper(FieldNodeName(FieldPart(key))), rule);
}

} // namespace

UnsavedTexts TakeUnsavedTexts(ctlRulemesh& control)
{
    DesignerViews& views = control.Views();
    UnsavedTexts texts;
    texts.PreCondition = views.txtPreCondition.Text();
    texts.QueryTable = views.txtMainQuery.Tag();
    texts.Query = views.txtMainQuery.Text();
    if (views.txtFunctions.Visible())
        texts.Functions = views.txtFunctions.Text();
    if (views.txtVariables.Visible())
        texts.Variables = views.txtVariables.Text();
    if (views.MainTab.Tab() != RulesTab)
        return texts; // leaving the rules saves them
    texts.Dump = views.CmbDump.Tag();
    const Grid& grid = views.RulesGrid;
    for (int row = 0; row < grid.Rows(); ++row) {
        const bool open = views.txtgrdline.Visible() && grid.Row() == row && grid.Col() == 1;
        texts.Rules.emplace_back(grid.TextMatrix(row, 0), open ? views.txtgrdline.Text() : grid.TextMatrix(row, 1));
    }
    return texts;
}

std::string WithUnsavedTexts(std::string object, const UnsavedTexts& texts)
{
    XmlDocument document;
    if (!document.loadXML(object))
        return object;
    Put(document.documentElement().selectSingleNode(u"PREC"), texts.PreCondition);
    PutQuery(document, texts);
    if (texts.Functions)
        Put(ChildOrNew(document, u"FUNCTIONS"), *texts.Functions);
    if (texts.Variables)
        Put(ChildOrNew(document, u"VAR"), *texts.Variables);
    PutRules(document, texts);
    return document.xmlUtf8();
}

std::string ObjectAsItStands(ctlRulemesh& control)
{
    return WithUnsavedTexts(control.DocumentAsItStands(), TakeUnsavedTexts(control));
}

} // namespace rulemesh
