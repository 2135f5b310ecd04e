#include "engine/guess.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "engine/convert_for_target.h"
#include "object/field_types.h"
#include "object/names.h"

namespace rulemesh {

namespace {

bool IsDateOrUtc(TextView StrType) noexcept
{
    return StrType == WordOf(FieldType::Utc) || StrType == WordOf(FieldType::Date);
}

// The field part of an indexed target without its index: "field" for "tgtable1.field(3)"; "" for any other.
TextView BasePart(TextView StrName) noexcept
{
    const std::size_t bracket = StrName.find(u'(');
    if (bracket == TextView::npos || bracket <= FieldPartOffset)
        return {};
    return StrName.substr(FieldPartOffset, bracket - FieldPartOffset);
}

bool IsReferenceCounter(TextView StrName) noexcept
{
    const std::size_t point = StrName.find(u'.');
    const TextView StrField = point == TextView::npos ? TextView() : StrName.substr(point + 1);
    return StrField == u"refcntu" || StrField == u"refcntd";
}

// Lengths compare as texts: "9" is at least "10".
bool IsSameField(const GuessField& source, const GuessField& target) noexcept
{
    return target.Length >= source.Length && target.Type == source.Type && target.Name == source.Name;
}

bool EnumsFit(const GuessField& source, const GuessField& target) noexcept
{
    return target.Enums.find(source.Enums) != TextView::npos;
}

Text Convert(const GuessField& source, const GuessField& target)
{
    return ConvertForTarget(source.Name, source.Type, target.Type);
}

// The first rule stays.
void Offer(ExplainedGuess& explained, Text StrRule, ExplainedGuess::Reason reason, std::optional<std::size_t> source)
{
    if (!explained.StrRule.empty() || StrRule.empty())
        return;
    explained.StrRule = std::move(StrRule);
    explained.Why = reason;
    explained.Source = source;
}

} // namespace

Guess::Guess(std::vector<GuessField> sources) : sources_(std::move(sources))
{
    for (std::size_t index = 0; index < sources_.size(); ++index)
        byFieldPart_[FieldPart(sources_[index].Name)].push_back(index);
}

Text Guess::RuleFor(const GuessField& target) const
{
    Proposal proposal = ProposeByName(target);
    if (proposal.StrRule.empty() && !proposal.Matched)
        proposal.StrRule = ProposeByDomain(target);
    return proposal.StrRule.empty() ? Text(DefaultRule) : proposal.StrRule; // no field stays without a rule
}

Guess::Proposal Guess::ProposeByName(const GuessField& target) const
{
    bool matched = false;
    if (IsDateOrUtc(target.Type))
        return {};
    for (const std::size_t index : PartnersOf(target)) {
        const GuessField& source = sources_[index];
        if (IsDateOrUtc(source.Type))
            continue;
        if (IsSameField(source, target)) {
            if (EnumsFit(source, target))
                return {Text(target.Name), matched};
            if (target.Domain != source.Domain)
                return {Text(DefaultRule), true};
        }
        matched = true;
        Text StrRule = Convert(source, target);
        if (!StrRule.empty() || source.Name == target.Name)
            return {std::move(StrRule), matched};
    }
    return {{}, matched};
}

// For dates and UTC times, and for what found no match by name: the very same field with the same domain.
Text Guess::ProposeByDomain(const GuessField& target) const
{
    for (const std::size_t index : PartnersOf(target)) {
        const GuessField& source = sources_[index];
        if (source.Name != target.Name)
            continue;
        if (source.Domain == target.Domain)
            return IsDateOrUtc(target.Type) ? Convert(source, target) : Text(source.Name);
        if (IsReferenceCounter(target.Name))
            return Text(DefaultRule);
    }
    return {};
}

ExplainedGuess Guess::Explain(const GuessField& target) const
{
    ExplainedGuess explained;
    if (!ExplainByName(target, explained))
        ExplainByDomain(target, explained);
    if (explained.StrRule.empty())
        explained.StrRule = DefaultRule;
    std::erase(explained.Others, explained.Source.value_or(sources_.size()));
    return explained;
}

// Whether a source matched, or gave the rule.
bool Guess::ExplainByName(const GuessField& target, ExplainedGuess& explained) const
{
    if (IsDateOrUtc(target.Type))
        return false;
    for (const std::size_t index : PartnersOf(target)) {
        const GuessField& source = sources_[index];
        if (IsDateOrUtc(source.Type))
            continue;
        explained.Others.push_back(index);
        const bool same = IsSameField(source, target);
        if (same && EnumsFit(source, target)) {
            Offer(explained, Text(target.Name), ExplainedGuess::Reason::Name, index);
        } else if (same && target.Domain != source.Domain) {
            Offer(explained, Text(DefaultRule), ExplainedGuess::Reason::Default, std::nullopt);
        } else {
            Offer(explained, Convert(source, target), ExplainedGuess::Reason::Name, index);
            if (source.Name == target.Name)
                break; // the pass ends here
        }
    }
    return !explained.Others.empty();
}

void Guess::ExplainByDomain(const GuessField& target, ExplainedGuess& explained) const
{
    for (const std::size_t index : PartnersOf(target)) {
        const GuessField& source = sources_[index];
        if (source.Name != target.Name)
            continue;
        if (source.Domain == target.Domain) {
            explained.Others.push_back(index);
            Offer(explained, IsDateOrUtc(target.Type) ? Convert(source, target) : Text(source.Name),
                  ExplainedGuess::Reason::Domain, index);
        }
        if (IsReferenceCounter(target.Name))
            Offer(explained, Text(DefaultRule), ExplainedGuess::Reason::Default, std::nullopt);
    }
}

// The sources with the target's field part and those with its base part, in the order of the list.
std::vector<std::size_t> Guess::PartnersOf(const GuessField& target) const
{
    const auto sourcesOf = [&](TextView StrFieldPart) {
        const auto found = byFieldPart_.find(StrFieldPart);
        return found == byFieldPart_.end() ? std::vector<std::size_t>() : found->second;
    };
    std::vector<std::size_t> same = sourcesOf(FieldPart(target.Name));
    const TextView StrBase = BasePart(target.Name);
    if (StrBase.empty())
        return same;
    const std::vector<std::size_t> base = sourcesOf(StrBase);
    std::vector<std::size_t> both;
    std::merge(same.begin(), same.end(), base.begin(), base.end(), std::back_inserter(both));
    return both;
}

} // namespace rulemesh
