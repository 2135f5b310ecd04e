#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <unordered_set>

#include "base/case_map.h"
#include "base/numbers.h"
#include "engine/check_run.h"
#include "engine/convert_for_target.h"
#include "engine/guess.h"
#include "object/field_types.h"
#include "object/rule_text.h"

namespace rulemesh {

namespace {

using Severity = Finding::Severity;

// A rule that is one field of the source catalogue and nothing else.
struct SourceField {
    FieldName Name;
    const FieldContent* Field = nullptr;
};

// "" for a letter that is no type.
Text TypeWord(TextView StrLetter)
{
    const auto known = std::find_if(FieldTypes.begin(), FieldTypes.end(),
                                    [&](const FieldTypeEntry& type) { return StrLetter == TextView(&type.Letter, 1); });
    return known == FieldTypes.end() ? Text() : Text(known->Word);
}

bool IsText(TextView StrType) noexcept { return StrType == u"S" || StrType == u"M"; }

// One dump, its table and what its rules say.
class DumpCheck {
public:
    DumpCheck(CheckRun& run, std::int16_t IntDump, const DumpContent& dump)
        : run_(run), number_(IntDump), dump_(dump),
          code_(run.Object.TargetTables ? dump.Target.value_or(Text()) : run.Object.Root),
          table_(run.Targets.Find(code_))
    {
    }

    void Run()
    {
        const bool isNamed = run_.NamedDumps.contains(number_);
        if (code_.empty())
            Tell(u"no-target", Severity::Error, u"", 0,
                 u"Dump " + Number() + u" names no target table; choose one with Change.");
        if (!isNamed && !dump_.Rules.empty())
            Tell(u"orphan-dump", Severity::Warning, u"", 0,
                 u"Dump " + Number() +
                     u" has rules, but no script names it, so the next save removes it; write a dump statement or "
                     u"copy its rules.");
        CheckRules();
        if (isNamed && table_ != nullptr)
            CheckFieldsWithoutRule();
    }

private:
    [[nodiscard]] Text Number() const { return PlainNumber(number_); }

    void Tell(TextView StrKind, Severity severity, Text StrField, std::size_t place, Text StrSentence)
    {
        run_.Tell({.Kind = StrKind,
                   .How = severity,
                   .Dump = number_,
                   .Table = code_,
                   .Field = std::move(StrField),
                   .Sentence = std::move(StrSentence)},
                  place);
    }

    void CheckRules()
    {
        std::unordered_set<TextView> seen;
        std::unordered_set<TextView> told;
        const std::size_t fields = table_ == nullptr ? 0 : table_->Fields().size();
        rules_.resize(fields);
        for (const RuleContent& rule : dump_.Rules) {
            const std::size_t field = table_ == nullptr ? fields : table_->PlaceOf(rule.Node);
            const std::size_t place = field < fields ? field + 1 : std::numeric_limits<std::size_t>::max();
            if (!seen.insert(rule.Node).second) {
                if (told.insert(rule.Node).second)
                    Tell(u"duplicate", Severity::Warning, ShownField(rule.Node), place,
                         u"Dump " + Number() +
                             u" has more than one rule for this field; only the first counts. "
                             u"Remove the others from the object's text.");
                continue;
            }
            if (field < fields)
                rules_[field] = &rule;
            else if (table_ != nullptr)
                Tell(u"stray-rule", Severity::Warning, ShownField(rule.Node), place,
                     u"The table " + code_ +
                         u" has no such field; the rule is never used. Remove it, or import the "
                         u"table with the field.");
            CheckRule(rule, field < fields ? &table_->Fields()[field] : nullptr, place);
        }
    }

    void CheckRule(const RuleContent& rule, const FieldContent* target, std::size_t place)
    {
        const Text StrField = ShownField(rule.Node);
        if (target != nullptr && target->Attribute(u"MAN") == u"Y" && rule.Rule == DefaultRule)
            Tell(u"default-left", Severity::Warning, StrField, place,
                 u"The field is mandatory and its rule is still default(); give it a rule of its own.");
        std::vector<Text> told;
        FieldNameCursor names(rule.Rule);
        while (const std::optional<FieldName> name = names.Next()) {
            run_.UsedTables.insert(ToLower(name->Table));
            if (name->Field.empty())
                continue;
            Text StrName = ToLower(TextView(rule.Rule).substr(name->Position, name->Length));
            if (std::find(told.begin(), told.end(), StrName) != told.end())
                continue;
            CheckName(*name, StrName, StrField, place);
            told.push_back(std::move(StrName));
        }
        if (target != nullptr)
            CheckPlainSource(rule, *target, place);
    }

    void CheckName(const FieldName& name, const Text& StrName, const Text& StrField, std::size_t place)
    {
        const FieldIndex::Table* const source = run_.Sources.Find(name.Table);
        const FieldIndex::Table* const target = run_.Targets.Find(name.Table);
        const auto has = [&](const FieldIndex::Table* table) {
            return table != nullptr && (table->Named(name) != nullptr || table->IsRepeated(name));
        };
        if (source == nullptr && target == nullptr)
            Tell(u"unknown-field", Severity::Error, StrField, place,
                 u"The rule names " + StrName + u", but no table " + ToLower(name.Table) +
                     u" is in the catalogue; correct the name or import the table.");
        else if (!has(source) && !has(target))
            Tell(u"unknown-field", Severity::Error, StrField, place,
                 u"The rule names " + StrName + u", but the table " + ToLower(name.Table) +
                     u" has no such field; correct the name or import the table anew.");
        else if (has(source) && !run_.ListedKeys.contains(ToLower(name.Table)))
            Tell(u"unlisted-table", Severity::Warning, StrField, place,
                 u"The rule names " + StrName + u", but " + ToLower(name.Table) +
                     u" isn't in the list of source tables; add it there.");
    }

    [[nodiscard]] SourceField PlainSourceOf(TextView StrRule) const
    {
        FieldNameCursor names(StrRule);
        const std::optional<FieldName> name = names.Next();
        if (!name || name->Field.empty() || name->Length != StrRule.size())
            return {};
        const FieldIndex::Table* const table = run_.Sources.Find(name->Table);
        return {*name, table == nullptr ? nullptr : table->Named(*name)};
    }

    void CheckPlainSource(const RuleContent& rule, const FieldContent& target, std::size_t place)
    {
        const TextView StrRule = TrimBlanks(rule.Rule);
        const SourceField source = PlainSourceOf(StrRule);
        if (source.Field == nullptr)
            return;
        const TextView StrSourceType = source.Field->Attribute(u"TYPE");
        const TextView StrTargetType = target.Attribute(u"TYPE");
        const Text StrSource = ToLower(source.Name.Table) + u"." + ShownField(source.Field->Node);
        const Text StrConverted = ConvertForTarget(StrSource, TypeWord(StrSourceType), TypeWord(StrTargetType));
        if (StrConverted.empty())
            Tell(u"type", Severity::Warning, ShownField(rule.Node), place,
                 StrSource + u" is of type " + TypeWord(StrSourceType) + u" and the field of type " +
                     TypeWord(StrTargetType) + u"; Map knows no conversion, so write one.");
        else if (StrConverted != ToLower(StrRule))
            Tell(u"type", Severity::Warning, ShownField(rule.Node), place,
                 u"The types " + TypeWord(StrSourceType) + u" and " + TypeWord(StrTargetType) +
                     u" need a conversion; Map would write " + StrConverted + u".");
        const TextView StrSourceLength = source.Field->Attribute(u"LENG");
        const TextView StrTargetLength = target.Attribute(u"LENG");
        if (IsText(StrSourceType) && IsText(StrTargetType) && IsNumeric(StrSourceLength) &&
            IsNumeric(StrTargetLength) && ToDouble(StrSourceLength) > ToDouble(StrTargetLength))
            Tell(u"length", Severity::Warning, ShownField(rule.Node), place,
                 StrSource + u" has up to " + Text(StrSourceLength) + u" characters and the field " +
                     Text(StrTargetLength) + u"; cut it in the rule or make sure that it fits.");
    }

    void CheckFieldsWithoutRule()
    {
        for (std::size_t field = 0; field < rules_.size(); ++field) {
            const FieldContent& target = table_->Fields()[field];
            if (rules_[field] != nullptr && !IsBlankRule(rules_[field]->Rule))
                continue;
            const bool isMandatory = target.Attribute(u"MAN") == u"Y";
            Tell(u"no-rule", isMandatory ? Severity::Error : Severity::Note, ShownField(target.Node), field + 1,
                 isMandatory ? u"The field is mandatory and has no rule; map a source field or write default()."
                             : u"The field has no rule; map a source field or press Guess.");
        }
    }

    CheckRun& run_;
    std::int16_t number_;
    const DumpContent& dump_;
    Text code_;
    const FieldIndex::Table* table_;
    std::vector<const RuleContent*> rules_; // by field of the table, null where there is none
};

// 0 for a text that no dump can have as its number.
std::int16_t NumberOf(const DumpContent& dump)
{
    constexpr double greatest = std::numeric_limits<std::int16_t>::max();
    const bool fits = IsNumeric(dump.Number) && std::abs(ToDouble(dump.Number)) <= greatest;
    return fits ? ToInt16(dump.Number) : std::int16_t{0};
}

} // namespace

void CheckDumps(CheckRun& run)
{
    std::map<std::int16_t, const DumpContent*> dumps;
    std::unordered_set<std::int16_t> told;
    for (const DumpContent& dump : run.Object.Dumps) {
        const std::int16_t IntDump = NumberOf(dump);
        if (!dumps.try_emplace(IntDump, &dump).second && told.insert(IntDump).second)
            run.Tell({.Kind = u"duplicate",
                      .How = Severity::Warning,
                      .Dump = IntDump,
                      .Table = run.Object.TargetTables ? dumps[IntDump]->Target.value_or(Text()) : run.Object.Root,
                      .Sentence = u"The object has more than one dump " + PlainNumber(IntDump) +
                                  u"; only the first counts. Remove the others from its text."});
    }
    const DumpContent none;
    for (const std::int16_t IntDump : run.NamedDumps)
        dumps.try_emplace(IntDump, &none);
    for (const auto& [IntDump, dump] : dumps)
        DumpCheck(run, IntDump, *dump).Run();
}

} // namespace rulemesh
