#include "engine/rule_mapping.h"

#include <limits>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/numbers.h"
#include "engine/convert_for_target.h"
#include "engine/guess.h"
#include "object/names.h"
#include "object/rule_text.h"
#include "views/field_columns.h"

namespace rulemesh {

void RuleMapping::SetRuleIfEmpty(TextView StrField, const Text& StrRule)
{
    const std::int16_t row = ToInt16(std::int64_t{lookup_.GetFieldNumber(StrField)} - 1);
    if (row >= 0 && IsBlankRule(views_.RulesGrid.TextMatrix(row, 1)))
        views_.RulesGrid.TextMatrix(row, 1, StrRule);
}

void RuleMapping::CmdMap_Click()
{
    const ListView& targets = views_.lstTargetFields;
    ListView& sources = views_.lstSourceFields;
    const ListRow selected = targets.SelectedRow();
    if (selected == NoListRow)
        return;
    if (sources.Count() > std::numeric_limits<std::int16_t>::max())
        throw Failure(FailureCode::Overflow, u"lstSourceFields holds " + PlainNumber(sources.Count()) +
                                                 u" fields; Map goes through up to 32767");

    const Text StrRule = RuleFromTickedFields(targets.TextAt(selected, TargetField::Type));
    if (StrRule.empty())
        platform_.ShowMessage({.Text = u"Please choose a source field to map"});
    else
        SetRuleIfEmpty(FieldPart(targets.TextAt(selected, TargetField::Name)), StrRule);
    for (int row = 1; row <= sources.Count(); ++row)
        sources.Check(row, false);
}

// The comma comes before the conversion that may give "", so a rule can end in one.
Text RuleMapping::RuleFromTickedFields(TextView StrTargetType) const
{
    const ListView& sources = views_.lstSourceFields;
    Text StrRule;
    for (int row = 1; row <= sources.Count(); ++row) {
        if (!sources.At(row).Checked)
            continue;
        if (!StrRule.empty())
            StrRule += u',';
        StrRule += ConvertForTarget(sources.TextAt(row, SourceField::Name), sources.TextAt(row, SourceField::Type),
                                    StrTargetType);
    }
    return StrRule;
}

void RuleMapping::CmdGuess_Click()
{
    const ListView& sources = views_.lstSourceFields;
    const ListView& targets = views_.lstTargetFields;
    if (sources.Count() == 0 || targets.Count() == 0)
        return; // and nothing is saved

    std::vector<GuessField> fields;
    fields.reserve(static_cast<std::size_t>(sources.Count()));
    for (int row = 1; row <= sources.Count(); ++row) {
        const ListView::Row& source = sources.At(row);
        fields.push_back({source.TextAt(SourceField::Name), source.TextAt(SourceField::Type),
                          source.TextAt(SourceField::Length), source.TextAt(SourceField::Domain),
                          source.TextAt(SourceField::Enums)});
    }
    const Guess guess(std::move(fields));
    for (int row = 1; row <= targets.Count(); ++row) {
        const ListView::Row& target = targets.At(row);
        const TextView StrName = target.TextAt(TargetField::Name);
        SetRuleIfEmpty(FieldPart(StrName),
                       guess.RuleFor({StrName, target.TextAt(TargetField::Type), target.TextAt(TargetField::Length),
                                      target.TextAt(TargetField::Domain), target.TextAt(TargetField::Enums)}));
    }
    shownDump_.SaveShownRules();
}

} // namespace rulemesh
