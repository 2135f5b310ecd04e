#include "shell/history.h"

#include <utility>

namespace rulemesh {

namespace {

bool IsTyping(const Action& action) noexcept
{
    return action.What == Action::Kind::Typing || action.What == Action::Kind::TypingAnew;
}

} // namespace

bool History::Undo()
{
    if (!MayAct() || undo_.empty())
        return false;
    UndoStep();
    TellOfWork();
    return true;
}

bool History::Redo()
{
    if (!MayAct() || redo_.empty())
        return false;
    RedoStep();
    TellOfWork();
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
    TellOfWork();
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
    Moment asked = moments_.Now();
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

void History::ActionEnds(const Action& action, bool changed, Moment before, DocumentEdits edits)
{
    const bool maySave = action.What == Action::Kind::Step || IsTyping(action);
    if (!state_.BoolEdit)
        Forget();
    else if (maySave && changed)
        AddStep(action, std::move(before), std::move(edits));
    else
        EndMove(action, before, std::move(edits));
}

void History::EndMove(const Action& action, const Moment& before, DocumentEdits edits)
{
    const bool keyWithoutEffect =
        action.What == Action::Kind::Key && BoxOf(action) == typedInto_ && moments_.Now().Views == before.Views;
    if (!keyWithoutEffect)
        typedInto_ = nullptr;
    KeepAsMoves(std::move(edits));
}

void History::AddStep(const Action& action, Moment before, DocumentEdits edits)
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
    Step step{Text(action.Name), std::move(before), {}, 0};
    step.Bytes = sizeof step + step.Before.BytesBeside(undo_.empty() ? nullptr : &undo_.back().Before);
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

void History::TellOfWork()
{
    Tell();
    events_.WorkChanged();
}

void History::PutBack(const Moment& moment)
{
    moments_.PutBack(moment);
    typedInto_ = nullptr;
}

// The cell of the grid that is typed into is edited in a box of its own.
const View* History::BoxOf(const Action& action) const noexcept
{
    return action.Box == &views_.RulesGrid ? &views_.txtgrdline : action.Box;
}

} // namespace rulemesh
