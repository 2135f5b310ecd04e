#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "document/xml_document.h"
#include "object/control_state.h"
#include "script/control_events.h"
#include "shell/moments.h"

namespace rulemesh {

/// Takes the user's changes back and does them again, step by step.
///
/// A step is one outermost action that changed the work: the document's text, the texts of the script boxes, the source
/// tables, the list of dumps, the rules in the grid or the rule that is being typed. What a move stores (a look at
/// another tab saves the scripts) belongs to the step before it. Undo puts everything back as it stood right before the
/// step, views and focus included, and Redo as it stood when Undo was asked; neither runs a handler.
class History {
public:
    static constexpr std::size_t DefaultMemory = 256U << 20; // bytes

    /// All must outlive the history. The events are told when what can be undone or redone has changed.
    History(XmlDocument& document, const ControlState& state, const DesignerViews& views, Moments& moments,
            ControlEvents& events)
        : XmlDocument_(document), state_(state), views_(views), moments_(moments), events_(events)
    {
    }
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    /// False, and nothing done, without such a step, while an action is running, and in a read-only control.
    bool Undo();
    bool Redo();

    /// The name of the step that would be undone or redone, "" for none.
    [[nodiscard]] Text UndoText() const { return undo_.empty() ? Text() : undo_.back().Name; }
    [[nodiscard]] Text RedoText() const { return redo_.empty() ? Text() : redo_.back().Done.Name; }

    /// The names of all steps, the oldest first: those that are done, then those that were undone.
    [[nodiscard]] std::vector<Text> StepNames() const;
    [[nodiscard]] std::size_t StepsDone() const noexcept { return undo_.size(); }

    /// Undoes or redoes until so many steps are done, and tells of it once. False, and nothing done, when so many are
    /// done already or there are not so many, and where Undo and Redo do nothing.
    bool GoToStep(std::size_t done);

    /// The most memory that the steps may take, about; the oldest go first.
    void Memory(std::size_t bytes);

    /// An outermost action has ended: whether it changed the work, what stood before it, and its edits of the document.
    /// Raises std::bad_alloc when there is no memory to remember it.
    void ActionEnds(const Action& action, bool changed, Moment before, DocumentEdits edits);

    /// What was edited outside of any action belongs to the moves.
    void KeepAsMoves(DocumentEdits edits);

    /// Begins anew: nothing before now can be put back.
    void Forget();

private:
    struct Step {
        Text Name;
        Moment Before;
        DocumentEdits Edits;
        std::size_t Bytes = 0; // of the edits, and of what the moment does not share with the one before

        void Take(DocumentEdits edits);
    };

    struct UndoneStep {
        Step Done;
        DocumentEdits Moves; // that came behind the step, until it was undone
        Moment Asked;
    };

    void UndoStep();
    void RedoStep();
    void AddStep(const Action& action, Moment before, DocumentEdits edits);
    void EndMove(const Action& action, const Moment& before, DocumentEdits edits);
    void DropOldest();
    void Tell();
    void TellOfWork();

    [[nodiscard]] bool MayAct() const noexcept { return state_.BoolEdit && !views_.Tree.Acting.Running(); }
    [[nodiscard]] const View* BoxOf(const Action& action) const noexcept;
    void PutBack(const Moment& moment);

    XmlDocument& XmlDocument_;
    const ControlState& state_;
    const DesignerViews& views_;
    Moments& moments_;
    ControlEvents& events_;

    std::deque<Step> undo_;
    std::vector<UndoneStep> redo_; // the one that was undone last is behind
    DocumentEdits moves_;          // since the last step, undo or redo
    std::size_t memory_ = DefaultMemory;

    const View* typedInto_ = nullptr; // the box of the last step while nothing but typing came behind it
};

} // namespace rulemesh
