#include "shell/moments.h"

#include <algorithm>
#include <utility>

namespace rulemesh {

std::size_t Moment::BytesBeside(const Moment* former) const
{
    std::size_t bytes = Views.Values.size() * sizeof(std::shared_ptr<const ViewValues>);
    for (std::size_t view = 0; view < Views.Values.size(); ++view) {
        if (former == nullptr || former->Views.Values[view] != Views.Values[view])
            bytes += Views.Values[view]->Bytes();
    }
    if (former == nullptr || former->State != State)
        bytes += sizeof(ControlState) + 128 * State->IntDumpNumbers.size();
    return bytes;
}

bool Work::IsSameAs(const Work& other) const
{
    const auto sameText = [](const auto& one, const auto& another) {
        return one == another || (one && another && *one == *another);
    };
    return std::equal(Boxes.begin(), Boxes.end(), other.Boxes.begin(), sameText) &&
           SourceTables.EqualTo(
               other.SourceTables,
               [&](const auto& one, const auto& another) { return sameText(one.Texts, another.Texts); }) &&
           Rules.EqualTo(other.Rules, [](const auto& one, const auto& another) { return one[1] == another[1]; }) &&
           State->IntDumpNumbers == other.State->IntDumpNumbers && State->StrDumpTexts == other.State->StrDumpTexts;
}

Moment Moments::Now() { return {views_.Tree.Now(), StateNow()}; }

Work Moments::WorkNow()
{
    Work work;
    for (const TextBox* box : std::initializer_list<const TextBox*>{&views_.txtPreCondition, &views_.txtMainQuery,
                                                                    &views_.txtFunctions, &views_.txtVariables})
        work.Boxes.push_back(box->SharedText());
    work.Boxes.push_back(views_.txtgrdline.Visible() ? views_.txtgrdline.SharedText() : nullptr);
    work.SourceTables = views_.lstSourceTables.AllRows();
    work.Rules = views_.RulesGrid.AllCells();
    work.State = StateNow();
    return work;
}

std::shared_ptr<const ControlState> Moments::StateNow()
{
    if (!stateThen_ || *stateThen_ != state_)
        stateThen_ = std::make_shared<const ControlState>(state_);
    return stateThen_;
}

void Moments::PutBack(const Moment& moment)
{
    ControlState state = *moment.State;
    state.IntErrorCode = state_.IntErrorCode;
    state.StrErrorText = state_.StrErrorText;
    state.StrEditor = state_.StrEditor;
    state.BoolSyntaxHighlight = state_.BoolSyntaxHighlight;
    state_ = std::move(state);
    views_.Tree.PutBack(moment.Views);
}

} // namespace rulemesh
