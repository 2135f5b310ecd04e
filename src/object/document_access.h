#pragma once

#include "document/xml_document.h"
#include "object/control_state.h"

namespace rulemesh {

/// The paths of a mapping object, on which MappingReader and MappingObject stand. A missing node or attribute reads as
/// the null handle or "", never as an error.
class DocumentAccess {
public:
    DocumentAccess(const XmlDocument& document, ControlState& state) : XmlDocument_(document), state_(state) {}

    /// The name that each path begins with.
    [[nodiscard]] const Text& TargetTable() const noexcept { return state_.StrTargetTable; }

    /// "/" + StrTargetTable + "/" + the steps below the root.
    [[nodiscard]] Text RootPath(TextView StrSteps) const;

    /// The first element of the path, of those whose key attribute has the value when StrKeyName is not "". A
    /// malformed path is recorded as an error and gives the null handle.
    [[nodiscard]] XmlNode GetNode(const Text& StrPath, TextView StrKeyName = {}, TextView StrKeyValue = {}) const;
    [[nodiscard]] Text GetNodeText(const Text& StrPath, TextView StrKeyName = {}, TextView StrKeyValue = {}) const;

    /// Remembers the first failure for the life of the control, the default one when IntCode is 0. Shows nothing.
    void RecordError(int IntCode, const Text& StrText, int IntDefaultCode, const Text& StrDefaultText) const;

private:
    const XmlDocument& XmlDocument_;
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
