#pragma once

#include "engine/shown_dump.h"

namespace rulemesh {

/// The free notes on the precondition, on a main query and on a rule, kept in the attribute TEXT. A host that keeps
/// notes itself stores the number of its text there instead; nothing tells the one from the other.
class TextNotes {
public:
    TextNotes(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform)
        : object_(object), state_(state), views_(views), platform_(platform)
    {
    }

    void CmdPreDoc_Click();
    void CmdMQDoc_Click();
    void CmdDumpText_Click();

    /// Stores a host's text number: StrType "P" for the precondition, "M" for the query of table StrKey1, "D" for the
    /// rule of field StrKey2 in dump StrKey1. Anything else does nothing.
    void SetTextNumber(TextView StrType, std::int32_t LngTextNumber, TextView StrKey1, TextView StrKey2);

private:
    void EditNote(const ScriptRecord& script, const Text& StrCaption);
    void SetPreconditionNumber(const Text& StrNumber);
    void SetQueryNumber(TextView StrTable, const Text& StrNumber);
    void SetRuleNumber(std::int16_t IntDump, TextView StrField, const Text& StrNumber);

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
};

} // namespace rulemesh
