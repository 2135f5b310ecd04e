#pragma once

#include <cstdint>

#include "base/text.h"

namespace rulemesh {

/// What the control tells its host. Each call comes from inside the user's action that raised it, and the host may set
/// properties of the control before it returns.
class ControlEvents {
public:
    virtual ~ControlEvents() = default;

    /// The user asks for a builder of the host's own; the host answers, now or later, by setting SourceTables,
    /// PreCondition, MainQuery or FieldMapping.
    virtual void ShowSourceTablesPopUp(const Text& i_SourceTables) = 0;
    virtual void ShowConditionBuilderPopUp(const Text& i_ConditionString, const Text& i_SourceTables) = 0;
    virtual void ShowQueryBuilderPopUp(const Text& i_QueryString, const Text& i_SourceTables) = 0;
    virtual void ShowFunctionBuilderPopUp(const Text& StrCondition, const Text& StrSourceTables) = 0;

    /// Declared for the host; the control never raises it.
    virtual void ShowFunctionalTextPopUp(const Text& DocType, std::int32_t LngTextNumber, const Text& StrKey1,
                                         const Text& StrKey2) = 0;

    /// A panel with text that isn't in the document yet was opened, or closed: the host blocks or frees its save.
    virtual void SaveDoneDisabled() = 0;
    virtual void SaveDoneEnabled() = 0;

    /// The work is no longer what it was: an action that changed it has ended (also one that ended in a failure, and
    /// one that only stored what a box or the grid held), it was undone or redone, or a new history began. Comes once
    /// for an action, whatever ran inside of it, when it has ended.
    virtual void WorkChanged() {}

    /// What Undo or Redo would do is no longer what it was. Comes when the action has ended.
    virtual void HistoryChanged() {}
};

} // namespace rulemesh
