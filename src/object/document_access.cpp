#include "object/document_access.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"

namespace rulemesh {

Text DocumentAccess::RootPath(TextView StrSteps) const
{
    return Text(u"/").append(state_.StrTargetTable).append(u"/").append(StrSteps);
}

XmlNode DocumentAccess::GetNode(const Text& StrPath, TextView StrKeyName, TextView StrKeyValue) const
{
    try {
        return StrKeyName.empty() ? XmlDocument_.selectSingleNode(StrPath)
                                  : XmlDocument_.selectSingleNode(StrPath, StrKeyName, StrKeyValue);
    } catch (const Failure& failure) {
        RecordError(failure.Number(), failure.Description(), 2001, u"Error Getting Node (GetNode)");
        return {};
    }
}

Text DocumentAccess::GetNodeText(const Text& StrPath, TextView StrKeyName, TextView StrKeyValue) const
{
    const XmlNode node = GetNode(StrPath, StrKeyName, StrKeyValue);
    return node ? node.text() : Text();
}

void DocumentAccess::RecordError(int IntCode, const Text& StrText, int IntDefaultCode, const Text& StrDefaultText) const
{
    if (state_.IntErrorCode != 0)
        return;
    state_.IntErrorCode = static_cast<std::int16_t>(IntCode != 0 ? IntCode : IntDefaultCode);
    state_.StrErrorText = IntCode != 0 ? StrText : StrDefaultText;
}

Text GetAttribute(XmlNode Node, TextView StrName) { return Node.getNamedItem(StrName).value_or(Text()); }

bool SetAttribute(XmlNode Node, TextView StrName, TextView StrValue)
{
    if (!Node)
        return false;
    Node.setNamedItem(StrName, StrValue);
    return true;
}

XmlNode AppendChild(XmlDocument& document, XmlNode Parent, TextView StrName, TextView StrKeyName, TextView StrKeyValue)
{
    if (!Parent)
        return {};
    const XmlNode child = document.createNode(StrName);
    if (!StrKeyName.empty())
        SetAttribute(child, StrKeyName, StrKeyValue);
    return Parent.appendChild(child);
}

Text DecodeEntities(TextView StrText)
{
    // The order is the behaviour: "&amp;lt;" comes out as "&lt;".
    Text StrDecoded = ReplaceAllIgnoringCase(StrText, u"&lt;", u"<");
    StrDecoded = ReplaceAllIgnoringCase(StrDecoded, u"&gt;", u">");
    StrDecoded = ReplaceAllIgnoringCase(StrDecoded, u"&amp;", u"&");
    StrDecoded = ReplaceAllIgnoringCase(StrDecoded, u"&quot;", u"\"");
    return ReplaceAll(StrDecoded, u"\n", LineEnd);
}

} // namespace rulemesh
