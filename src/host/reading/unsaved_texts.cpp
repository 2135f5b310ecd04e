#include "host/reading/unsaved_texts.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "object/object_copy.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

namespace {

constexpr int RulesTab = 1;
constexpr int RuleColumn = 1;

// Texts that differ in carriage returns alone look alike: no key types one by itself.
bool LookAlike(TextView a, TextView b) { return Without(a, u'\r') == Without(b, u'\r'); }

// What a save could not store stays out: it would fail in the same place.
template <typename Step> void Try(Step step)
{
    try {
        step();
    } catch (const Failure&) {
        return;
    }
}

template <typename Store> void PutScript(const Text& stored, const Text& shown, Store store)
{
    if (!LookAlike(stored, shown) && !LookAlike(DecodeEntities(stored), shown))
        Try([&] { store(shown); });
}

void PutTexts(MappingObject& object, const UnsavedTexts& texts)
{
    const MappingReader& reader = object.Read();
    PutScript(reader.GetPreconditionText(), texts.PreCondition,
              [&](const Text& text) { object.SetScript(reader.Precondition(), text); });
    if (!texts.QueryTable.empty())
        PutScript(reader.GetQueryText(texts.QueryTable), texts.Query,
                  [&](const Text& text) { object.SetQuery(texts.QueryTable, text); });
    if (texts.Functions)
        PutScript(reader.GetFunctionsText(), *texts.Functions,
                  [&](const Text& text) { object.SetFunctionsText(text); });
    if (texts.Variables)
        PutScript(WithoutMarks(reader.GetVariablesText()), *texts.Variables,
                  [&](const Text& text) { object.SetVariablesText(text); });
    Try([&] {
        object.SaveDumpRules(texts.Dump, {.AskForTable = [&] { return texts.DumpTable; },
                                          .Table = [&] { return object.TableOfDump(texts.Dump.Number().Value()); },
                                          .Rules = [&] { return RuleTexts(texts.Rules.begin(), texts.Rules.end()); }});
    });
}

} // namespace

UnsavedTexts TakeUnsavedTexts(ctlRulemesh& control)
{
    DesignerViews& views = control.Views();
    UnsavedTexts texts;
    texts.PreCondition = views.txtPreCondition.Text();
    texts.QueryTable = control.State().QueryTable.Written();
    texts.Query = views.txtMainQuery.Text();
    if (views.txtFunctions.Visible())
        texts.Functions = views.txtFunctions.Text();
    if (views.txtVariables.Visible())
        texts.Variables = views.txtVariables.Text();
    if (views.MainTab.Tab() != RulesTab)
        return texts; // leaving the rules saves them
    texts.Dump = control.State().DumpInGrid;
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
    ObjectCopy copy(object);
    if (!copy.IsLoaded())
        return object;
    PutTexts(copy.Object(), texts);
    return copy.XmlUtf8();
}

std::string ObjectAsItStands(ctlRulemesh& control)
{
    return WithUnsavedTexts(control.DocumentAsItStands(), TakeUnsavedTexts(control));
}

} // namespace rulemesh
