#pragma once

#include <cstdint>

#include "document/xml_document.h"
#include "object/control_state.h"

namespace rulemesh {

/// The one way in which the control reaches its document: by path, each time anew. A missing node or attribute reads
/// as the null handle or "", never as an error.
class DocumentAccess {
public:
    DocumentAccess(XmlDocument& document, ControlState& state) : XmlDocument_(document), state_(state) {}

    [[nodiscard]] XmlDocument& Document() const noexcept { return XmlDocument_; }

    /// "/" + StrTargetTable + "/" + the steps below the root.
    [[nodiscard]] Text RootPath(TextView StrSteps) const;

    /// The first element of the path, of those whose key attribute has the value when StrKeyName is not "". A
    /// malformed path is recorded as an error and gives the null handle.
    [[nodiscard]] XmlNode GetNode(const Text& StrPath, TextView StrKeyName = {}, TextView StrKeyValue = {}) const;
    [[nodiscard]] Text GetNodeText(const Text& StrPath, TextView StrKeyName = {}, TextView StrKeyValue = {}) const;

    /// Replaces the text of the element that GetNode finds. False, and nothing made, when there is none.
    bool SetNodeText(const Text& StrPath, TextView StrText, TextView StrKeyName = {}, TextView StrKeyValue = {}) const;

    /// Remembers the first failure for the life of the control, the default one when IntCode is 0. Shows nothing.
    void RecordError(int IntCode, const Text& StrText, int IntDefaultCode, const Text& StrDefaultText) const;

    [[nodiscard]] Text GetFunctionsText() const { return GetNodeText(RootPath(u"FUNCTIONS")); }
    [[nodiscard]] Text GetVariablesText() const { return GetNodeText(RootPath(u"VAR")); }
    [[nodiscard]] Text GetPreconditionText() const { return GetNodeText(RootPath(u"PREC")); }
    [[nodiscard]] Text GetSourceTablesText() const { return GetNodeText(RootPath(u"SRCTBL")); }
    [[nodiscard]] Text GetQueryText(TextView StrTable) const
    {
        return GetNodeText(RootPath(u"QUERY"), u"ST", StrTable);
    }

    /// Make the element where it is missing; always true. Raise ObjectVariableNotSet when it can't be made.
    bool SetFunctionsText(TextView StrText) const { return SetRootChildText(u"FUNCTIONS", StrText); }
    bool SetVariablesText(TextView StrText) const { return SetRootChildText(u"VAR", StrText); }

    [[nodiscard]] XmlNode GetDumpNode(std::int16_t IntDump) const;

    /// Appends a DUMP with its number and, also when it is "", its comment.
    XmlNode CreateDumpNode(std::int16_t IntDump, TextView StrText) const;

    /// The rule of a field. For a number above 0 that has no DUMP yet this read makes one.
    [[nodiscard]] Text GetRuleText(std::int16_t IntDump, TextView StrField) const;

private:
    bool SetRootChildText(TextView StrName, TextView StrText) const;

    XmlDocument& XmlDocument_;
    ControlState& state_;
};

/// The value of an attribute, "" when it is absent. Raises ObjectVariableNotSet on the null handle.
[[nodiscard]] Text GetAttribute(XmlNode Node, TextView StrName);

/// Replaces the attribute's value or adds the attribute. False on the null handle.
bool SetAttribute(XmlNode Node, TextView StrName, TextView StrValue);

/// Appends a new element with at most one attribute and returns it; the null handle for a null parent.
XmlNode AppendChild(XmlDocument& document, XmlNode Parent, TextView StrName, TextView StrKeyName = {},
                    TextView StrKeyValue = {});

/// Undoes one level of escape and gives each line feed a carriage return, for the way to the screen.
[[nodiscard]] Text DecodeEntities(TextView StrText);

} // namespace rulemesh
