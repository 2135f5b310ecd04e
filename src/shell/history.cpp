#include "shell/history.h"

#include <algorithm>
#include <new>
#include <utility>

namespace rulemesh {

namespace {

bool IsTyping(const Action& action) noexcept
{
    return action.What == Action::Kind::Typing || action.What == Action::Kind::TypingAnew;
}

} // namespace

History::History(XmlDocument& document, ControlState& state, DesignerViews& views, ControlEvents& events)
    : XmlDocument_(document), state_(state), views_(views), events_(events)
{
    XmlDocument_.KeepEdits();
    views_.Tree.Acting.Begins = [this](const Action&) { ActionBegins(); };
    views_.Tree.Acting.Ends = [this](const Action& action) { ActionEnds(action); };
}

bool History::Undo()
{
    if (!MayAct() || undo_.empty())
        return false;
    UndoStep();
    Tell();
    return true;
}

bool History::Redo()
{
    if (!MayAct() || redo_.empty())
        return false;
    RedoStep();
    Tell();
    return true;
}

bool History::GoToStep(std::size_t done)
{
    if (!MayAct() || done == undo_.size() || done > undo_.size() + redo_.size())
        return false;
    while (undo_.size() > done)
        UndoStep();
    while (undo_.size() < done)
        RedoStep();
    Tell();
    return true;
}

std::vector<Text> History::StepNames() const
{
    std::vector<Text> names;
    names.reserve(undo_.size() + redo_.size());
    for (const Step& step : undo_)
        names.push_back(step.Name);
    for (auto undone = redo_.rbegin(); undone != redo_.rend(); ++undone)
        names.push_back(undone->Done.Name);
    return names;
}

void History::UndoStep()
{
    Moment asked = Now();
    moves_.Append(XmlDocument_.TakeEdits());
    redo_.reserve(redo_.size() + 1);
    UndoneStep undone{std::move(undo_.back()), std::exchange(moves_, {}), std::move(asked)};
    undo_.pop_back();
    XmlDocument_.TakeBack(undone.Moves);
    XmlDocument_.TakeBack(undone.Done.Edits);
    PutBack(undone.Done.Before);
    redo_.push_back(std::move(undone));
}

// Moves that came behind the undo are taken back first: the edits fit nothing else than what they were taken from.
void History::RedoStep()
{
    moves_.Append(XmlDocument_.TakeEdits());
    XmlDocument_.TakeBack(moves_);
    UndoneStep undone = std::move(redo_.back());
    redo_.pop_back();
    XmlDocument_.DoAgain(undone.Done.Edits);
    XmlDocument_.DoAgain(undone.Moves);
    PutBack(undone.Asked);
    undo_.push_back(std::move(undone.Done));
    moves_ = std::move(undone.Moves);
}

void History::ActionBegins()
{
    try {
        KeepAsMoves(XmlDocument_.TakeEdits());
        begun_ = Now();
        workThen_ = WorkNow();
    } catch (const std::bad_alloc&) {
        Forget();
    }
}

// Without the memory to remember a change, nothing before it can be put back either.
void History::ActionEnds(const Action& action)
{
    try {
        DocumentEdits edits = XmlDocument_.TakeEdits();
        const bool maySave = action.What == Action::Kind::Step || IsTyping(action);
        if (action.What == Action::Kind::Begin || !state_.BoolEdit || !begun_ || !workThen_)
            Forget();
        else if (maySave && (XmlDocument_.ChangeText(edits) || !IsSameWork(*workThen_)))
            AddStep(action, std::move(edits));
        else
            EndMove(action, std::move(edits));
    } catch (const std::bad_alloc&) {
        Forget();
    }
    begun_.reset();
    workThen_.reset();
}

void History::EndMove(const Action& action, DocumentEdits edits)
{
    const bool keyWithoutEffect =
        action.What == Action::Kind::Key && BoxOf(action) == typedInto_ && Now().Views == begun_->Views;
    if (!keyWithoutEffect)
        typedInto_ = nullptr;
    KeepAsMoves(std::move(edits));
}

void History::AddStep(const Action& action, DocumentEdits edits)
{
    const View* const box = IsTyping(action) ? BoxOf(action) : nullptr;
    const bool goesOn = action.What == Action::Kind::Typing && box == typedInto_;
    typedInto_ = box;
    if (goesOn) {
        KeepAsMoves(std::move(edits));
        return;
    }
    redo_.clear();
    if (!undo_.empty())
        undo_.back().Take(std::exchange(moves_, {}));
    moves_ = {};
    Step step{action.Name, std::move(*begun_), {}, 0};
    step.Bytes = BytesOf(step.Before);
    step.Take(std::move(edits));
    undo_.push_back(std::move(step));
    DropOldest();
    Tell();
}

void History::Step::Take(DocumentEdits edits)
{
    Bytes += edits.Bytes();
    Edits.Append(std::move(edits));
}

void History::KeepAsMoves(DocumentEdits edits)
{
    // In front of the first step there is nothing to put back.
    if (!undo_.empty() || !redo_.empty())
        moves_.Append(std::move(edits));
}

void History::Forget()
{
    const bool had = !undo_.empty() || !redo_.empty();
    undo_.clear();
    redo_.clear();
    moves_ = {};
    typedInto_ = nullptr;
    if (had)
        Tell();
}

void History::Memory(std::size_t bytes)
{
    memory_ = bytes;
    DropOldest();
}

void History::DropOldest()
{
    std::size_t bytes = 0;
    for (const Step& step : undo_)
        bytes += step.Bytes;
    while (bytes > memory_ && undo_.size() > 1) {
        bytes -= undo_.front().Bytes;
        undo_.pop_front();
    }
}

void History::Tell() { events_.HistoryChanged(); }

// The cell of the grid that is typed into is edited in a box of its own.
const View* History::BoxOf(const Action& action) const noexcept
{
    return action.Box == &views_.RulesGrid ? &views_.txtgrdline : action.Box;
}

History::Moment History::Now() { return {views_.Tree.Now(), StateNow()}; }

std::shared_ptr<const ControlState> History::StateNow()
{
    if (!stateThen_ || *stateThen_ != state_)
        stateThen_ = std::make_shared<const ControlState>(state_);
    return stateThen_;
}

// What the moment does not share with that of the step before.
std::size_t History::BytesOf(const Moment& moment) const
{
    std::size_t bytes = sizeof(Step) + moment.Views.Values.size() * sizeof(std::shared_ptr<const ViewValues>);
    const Moment* const former = undo_.empty() ? nullptr : &undo_.back().Before;
    for (std::size_t view = 0; view < moment.Views.Values.size(); ++view) {
        if (former == nullptr || former->Views.Values[view] != moment.Views.Values[view])
            bytes += moment.Views.Values[view]->Bytes();
    }
    if (former == nullptr || former->State != moment.State)
        bytes += sizeof(ControlState) + 128 * moment.State->IntDumpNumbers.size();
    return bytes;
}

void History::PutBack(const Moment& moment)
{
    ControlState state = *moment.State;
    state.IntErrorCode = state_.IntErrorCode; // the first failure is kept for life
    state.StrErrorText = state_.StrErrorText;
    state.StrEditor = state_.StrEditor; // the host's settings stay as they are
    state.BoolSyntaxHighlight = state_.BoolSyntaxHighlight;
    state_ = std::move(state);
    views_.Tree.PutBack(moment.Views);
    typedInto_ = nullptr;
}

History::Work History::WorkNow()
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

bool History::IsSameWork(const Work& before)
{
    const Work now = WorkNow();
    const auto sameText = [](const auto& one, const auto& other) {
        return one == other || (one && other && *one == *other);
    };
    return std::equal(now.Boxes.begin(), now.Boxes.end(), before.Boxes.begin(), sameText) &&
           now.SourceTables.EqualTo(
               before.SourceTables,
               [&](const auto& one, const auto& other) { return sameText(one.Texts, other.Texts); }) &&
           now.Rules.EqualTo(before.Rules, [](const auto& one, const auto& other) { return one[1] == other[1]; }) &&
           now.State->IntDumpNumbers == before.State->IntDumpNumbers &&
           now.State->StrDumpTexts == before.State->StrDumpTexts;
}

} // namespace rulemesh
