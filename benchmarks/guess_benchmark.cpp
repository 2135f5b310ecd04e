#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "engine/convert_for_target.h"
#include "engine/field_rows.h"
#include "engine/guess.h"
#include "object/names.h"
#include "object/rule_text.h"
#include "shell/ctl_rulemesh.h"
#include "silent_desk.h"
#include "views/field_columns.h"

// Guessing the rules of 2,000 target fields from 50,000 source fields, beside the walk over every source field for
// every target field by which guessing is defined. Both must give the same rules.

namespace rulemesh {
namespace {

constexpr int SourceTables = 100;
constexpr int FieldsOfSourceTable = 500;
constexpr int TargetFields = 2000;
constexpr int FieldNames = 20'000;

constexpr std::array<const char*, 8> Shapes = {
    R"(TYPE="S" LENG="20")", R"(TYPE="S" LENG="9")",          R"(TYPE="M" LENG="20")", R"(TYPE="L" DIGB="10")",
    R"(TYPE="T")",           R"(TYPE="F" DIGB="9" DIGA="2")", R"(TYPE="K")",           R"(TYPE="E" LENG="2")"};

class Random {
public:
    int Below(int limit) noexcept
    {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(limit));
    }

private:
    std::uint64_t state_ = 3;
};

std::string TableCode(int table)
{
    const std::string digits = std::to_string(table);
    return "SRTAB" + std::string(3 - digits.size(), '0') + digits;
}

// Every fifth field is an indexed one in the odd tables, and has no index in the even ones.
std::string FieldName(int table, int field)
{
    const int name = (table * 211 + field * 37) % FieldNames;
    const bool isIndexed = name % 5 == 0 && table % 2 == 1;
    return "F" + std::to_string(name) + (isIndexed ? "__" + std::to_string(name % 3 + 1) : "");
}

void AddField(std::string& object, Random& random, const std::string& name, const std::string& position)
{
    object.append("<").append(name).append(" No=\"" + position + "\" FNo=\"" + position + "\" ");
    object.append(Shapes[static_cast<std::size_t>(random.Below(static_cast<int>(Shapes.size())))]);
    if (random.Below(3) == 0)
        object += " DOMAIN=\"domain" + std::to_string(random.Below(4)) + "\"";
    if (random.Below(4) == 0)
        object += random.Below(2) == 0 ? " DOMENUMS=\"A\"" : " DOMENUMS=\"A,B\"";
    object += "/>";
}

// The target table's code is that of a source table too, so that some fields meet their very own name. Names are drawn
// without repetition within a table: each table takes a stride of its own through them.
std::string Object()
{
    Random random;
    std::string object = "<SRTAB001><SRCTBL>";
    for (int table = 1; table <= SourceTables; ++table)
        object += (table == 1 ? "" : ",") + TableCode(table);
    object += "</SRCTBL><PREC>migrate SRTAB001 </PREC><QUERY ST=\"SRTAB001\">dump 1 | wide </QUERY><SRCTAB>";
    for (int table = 1; table <= SourceTables; ++table) {
        object += "<" + TableCode(table) + ">";
        for (int field = 0; field < FieldsOfSourceTable; ++field)
            AddField(object, random, FieldName(table, field), std::to_string(field + 1));
        object += "</" + TableCode(table) + ">";
    }
    object += "</SRCTAB><TARTAB><SRTAB001>";
    for (int field = 0; field < TargetFields; ++field)
        AddField(object, random, FieldName(1, field), std::to_string(field + 1));
    return object + "</SRTAB001></TARTAB></SRTAB001>";
}

// The designer with the lists and the empty rules of the dump in view.
struct Designer {
    SilentDesk Desk;
    ctlRulemesh Control{Desk, Desk};

    Designer()
    {
        Control.TargetTable(u"SRTAB001");
        Control.Edit(true);
        Control.MappingObjectXML(Object());
        Control.ShowControl();
        Control.Views().MainTab.UserClicksTab(1);
    }
};

Designer& SharedDesigner()
{
    static Designer designer;
    return designer;
}

std::vector<GuessField> Sources()
{
    const ListView& list = SharedDesigner().Control.Views().lstSourceFields;
    std::vector<GuessField> fields;
    for (int number = 1; number <= list.Count(); ++number) {
        const ListView::Row& row = list.At(number);
        fields.push_back({row.TextAt(SourceField::Name), row.TextAt(SourceField::Type), row.TextAt(SourceField::Length),
                          row.TextAt(SourceField::Domain), row.TextAt(SourceField::Enums)});
    }
    return fields;
}

std::vector<GuessField> Targets()
{
    const ListView& list = SharedDesigner().Control.Views().lstTargetFields;
    std::vector<GuessField> fields;
    for (int number = 1; number <= list.Count(); ++number) {
        const ListView::Row& row = list.At(number);
        fields.push_back({row.TextAt(TargetField::Name), row.TextAt(TargetField::Type), row.TextAt(TargetField::Length),
                          row.TextAt(TargetField::Domain), row.TextAt(TargetField::Enums)});
    }
    return fields;
}

// A cell that keeps the first rule which isn't blank.
class Cell {
public:
    void Write(const Text& StrRule)
    {
        if (IsBlankRule(rule_))
            rule_ = StrRule;
    }
    [[nodiscard]] const Text& Rule() const noexcept { return rule_; }

private:
    Text rule_ = u" ";
};

bool IsDateOrUtc(TextView StrType) { return StrType == u"UTC" || StrType == u"Date"; }

// The walk by name. True when a source field matched.
bool WalkByName(const std::vector<GuessField>& sources, const GuessField& target, Cell& cell)
{
    const TextView StrFieldPart = FieldPart(target.Name);
    const std::size_t bracket = target.Name.find(u'(');
    const bool isIndexed = bracket != TextView::npos && bracket > FieldPartOffset;
    const TextView StrBase = isIndexed ? target.Name.substr(FieldPartOffset, bracket - FieldPartOffset) : TextView();
    bool matched = false;
    for (const GuessField& source : sources) {
        if (IsDateOrUtc(source.Type) || IsDateOrUtc(target.Type))
            continue;
        if (target.Length >= source.Length && target.Type == source.Type && target.Name == source.Name) {
            if (target.Enums.find(source.Enums) != TextView::npos) {
                cell.Write(Text(target.Name));
                continue;
            }
            if (target.Domain != source.Domain) {
                cell.Write(u"default()");
                matched = true;
                continue;
            }
        }
        if (FieldPart(source.Name) == StrFieldPart) {
            cell.Write(ConvertForTarget(source.Name, source.Type, target.Type));
            matched = true;
            if (source.Name == target.Name)
                return true;
        } else if (isIndexed && FieldPart(source.Name) == StrBase) {
            cell.Write(ConvertForTarget(source.Name, source.Type, target.Type));
            matched = true;
        }
    }
    return matched;
}

Text RuleOfVeryField(const GuessField& source, TextView StrTargetType)
{
    if (IsDateOrUtc(StrTargetType) && IsDateOrUtc(source.Type)) {
        if (StrTargetType == u"UTC" && source.Type == u"UTC")
            return u"utc$(" + Text(source.Name) + u")";
        return u"utc(" + Text(source.Name) + u",0,2)";
    }
    return Text(source.Name);
}

Text RuleByWalking(const std::vector<GuessField>& sources, const GuessField& target)
{
    Cell cell;
    if (!WalkByName(sources, target, cell)) {
        for (const GuessField& source : sources) {
            if (source.Domain == target.Domain && source.Name == target.Name)
                cell.Write(RuleOfVeryField(source, target.Type));
            const bool isCounter = target.Name.ends_with(u".refcntu") || target.Name.ends_with(u".refcntd");
            if (source.Name == target.Name && isCounter)
                cell.Write(u"default()");
        }
    }
    cell.Write(u"default()");
    return cell.Rule();
}

std::vector<Text> RulesByWalking(const std::vector<GuessField>& sources, const std::vector<GuessField>& targets)
{
    std::vector<Text> rules;
    rules.reserve(targets.size());
    for (const GuessField& target : targets)
        rules.push_back(RuleByWalking(sources, target));
    return rules;
}

std::vector<Text> RulesByGuess(const std::vector<GuessField>& sources, const std::vector<GuessField>& targets)
{
    const Guess guess(sources);
    std::vector<Text> rules;
    rules.reserve(targets.size());
    for (const GuessField& target : targets)
        rules.push_back(guess.RuleFor(target));
    return rules;
}

void GuessRules(benchmark::State& state)
{
    const std::vector<GuessField> sources = Sources();
    const std::vector<GuessField> targets = Targets();
    std::vector<Text> rules;
    for ([[maybe_unused]] auto iteration : state)
        rules = RulesByGuess(sources, targets);
    state.counters["sources"] = static_cast<double>(sources.size());
    state.counters["targets"] = static_cast<double>(targets.size());
    state.counters["default"] = static_cast<double>(std::count(rules.begin(), rules.end(), u"default()"));
}
BENCHMARK(GuessRules)->Unit(benchmark::kMillisecond);

void GuessRulesByWalking(benchmark::State& state)
{
    const std::vector<GuessField> sources = Sources();
    const std::vector<GuessField> targets = Targets();
    std::vector<Text> rules;
    for ([[maybe_unused]] auto iteration : state)
        rules = RulesByWalking(sources, targets);
    if (rules != RulesByGuess(sources, targets))
        state.SkipWithError("the two ways give different rules");
}
BENCHMARK(GuessRulesByWalking)->Unit(benchmark::kMillisecond)->Iterations(1);

// The whole command: the lists are read, the grid is filled, and the rules of the dump are saved.
void ClickGuess(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        auto designer = std::make_unique<Designer>();
        state.ResumeTiming();
        designer->Control.Views().CmdGuess.UserClicks();
        state.PauseTiming();
        if (designer->Control.Views().RulesGrid.TextMatrix(TargetFields - 1, 1).size() < 2)
            state.SkipWithError("a field was left without a rule");
        designer.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(ClickGuess)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace rulemesh
