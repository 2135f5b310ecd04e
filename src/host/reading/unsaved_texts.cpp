#include "host/reading/unsaved_texts.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "object/dump_records.h"
#include "script/main_query.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

namespace {

constexpr int RulesTab = 1;
constexpr int RuleColumn = 1;

// Texts that differ in carriage returns alone look alike: no key types one by itself.
bool LookAlike(TextView a, TextView b) { return Without(a, u'\r') == Without(b, u'\r'); }

// A copy of a designer's document with the operations that write into it. What an operation can't store stays out.
class Copy {
public:
    explicit Copy(XmlDocument& document) : access_(document, state_), records_(access_, state_)
    {
        state_.StrTargetTable = document.documentElement().baseName();
        Try([this] { state_.BoolMultiTarget = records_.CheckMscripts(); });
    }

    void Put(const UnsavedTexts& texts)
    {
        PutScript(access_.GetPreconditionText(), texts.PreCondition,
                  [this](const Text& text) { access_.GetNode(access_.RootPath(u"PREC")).text(text); });
        if (!texts.QueryTable.empty())
            PutScript(access_.GetQueryText(texts.QueryTable), texts.Query,
                      [&](const Text& text) { StoreQuery(access_, texts.QueryTable, text); });
        if (texts.Functions)
            PutScript(access_.GetFunctionsText(), *texts.Functions,
                      [this](const Text& text) { access_.SetFunctionsText(text); });
        if (texts.Variables)
            PutScript(WithoutMarks(access_.GetVariablesText()), *texts.Variables,
                      [this](const Text& text) { access_.SetVariablesText(text); });
        Try([&] { PutRules(texts); });
    }

private:
    template <typename Step> void Try(Step step)
    {
        try {
            step();
        } catch (const Failure&) {
            return; // a save would fail in the same place
        }
    }

    template <typename Store> void PutScript(const Text& stored, const Text& shown, Store store)
    {
        if (!LookAlike(stored, shown) && !LookAlike(DecodeEntities(stored), shown))
            Try([&] { store(shown); });
    }

    void PutRules(const UnsavedTexts& texts)
    {
        if (texts.Dump.empty() || texts.Dump == u"0")
            return;
        const std::int16_t dump = ToInt16(texts.Dump);
        const XmlNode element = records_.DumpToFill(dump, [&] { return texts.DumpTable; });
        if (const XmlNode table = records_.TableOfDump(dump))
            records_.SaveRules(element, table, {texts.Rules.begin(), texts.Rules.end()});
    }

    ControlState state_;
    DocumentAccess access_;
    DumpRecords records_;
};

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
    texts.DumpTable = views.CmbTargetTable.Text();
    const Grid& grid = views.RulesGrid;
    for (int row = 0; row < grid.Rows(); ++row) {
        const bool open = views.txtgrdline.Visible() && grid.Row() == row && grid.Col() == RuleColumn;
        texts.Rules.push_back(open ? views.txtgrdline.Text() : grid.TextMatrix(row, RuleColumn));
    }
    return texts;
}

std::string WithUnsavedTexts(std::string object, const UnsavedTexts& texts)
{
    XmlDocument document;
    if (!document.loadXML(object))
        return object;
    Copy(document).Put(texts);
    return document.xmlUtf8();
}

std::string ObjectAsItStands(ctlRulemesh& control)
{
    return WithUnsavedTexts(control.DocumentAsItStands(), TakeUnsavedTexts(control));
}

} // namespace rulemesh
