#include <utility>

#include "base/failure.h"
#include "document/xml_characters.h"
#include "document/xml_document.h"
#include "document/xml_paths.h"
#include "document/xml_store.h"
#include "document/xml_text.h"
#include "document/xml_transcode.h"

namespace rulemesh {

namespace {

using xml::NodeIndex;
using xml::NoNode;
using xml::Store;

// A node without children can hold nobody, so that the way up is gone only for those who could.
bool Holds(Store& store, NodeIndex holder, NodeIndex node)
{
    if (holder == node)
        return true;
    if (store.At(holder).first == NoNode)
        return false;
    while (node != NoNode && node != holder)
        node = store.At(node).parent;
    return node == holder;
}

} // namespace

XmlNode::XmlNode(const XmlDocument* document, std::uint32_t index) noexcept
    : document_(index == 0 ? nullptr : document), index_(index), load_(index == 0 ? 0 : document->load_)
{
}

Store& XmlNode::StoreOf() const
{
    if (document_ == nullptr || load_ != document_->load_ || index_ >= document_->store_->NodeCount())
        throw Failure(FailureCode::ObjectVariableNotSet, u"The object has no such element");
    return *document_->store_;
}

Store& XmlNode::ElementStore() const
{
    Store& store = StoreOf();
    if (!store.At(index_).isElement)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"Nothing can be put into the declaration, comment or instruction before the root element");
    return store;
}

Text XmlNode::baseName() const
{
    Store& store = StoreOf();
    return xml::ToText(store.Names().At(store.At(index_).name));
}

Text XmlNode::text() const { return xml::ToText(xml::TrimSpace(xml::TextOf(StoreOf(), index_))); }

void XmlNode::text(TextView value, CarriageReturns returns) const
{
    ElementStore().WriteText(index_, xml::ToUtf8Replacing(value), returns);
}

std::optional<Text> XmlNode::getNamedItem(TextView name) const
{
    Store& store = StoreOf();
    const std::optional<std::string> utf8 = xml::ToUtf8Exactly(name);
    if (!utf8)
        return std::nullopt;
    const std::optional<std::string> value = store.Attribute(index_, *utf8);
    if (!value)
        return std::nullopt;
    return xml::ToText(*value);
}

std::vector<Text> XmlNode::getNamedItems(std::span<const std::string_view> names) const
{
    std::vector<Text> values(names.size());
    StoreOf().ReadAttributes(index_, names,
                             [&](std::size_t name, const std::string& value) { values[name] = xml::ToText(value); });
    return values;
}

void XmlNode::setNamedItem(TextView name, TextView value) const
{
    Store& store = ElementStore();
    const std::optional<std::string> utf8 = xml::ToUtf8Exactly(name);
    if (!utf8 || !xml::IsName(*utf8))
        throw Failure(FailureCode::InvalidProcedureCall, Quoted(name) + u" can't be the name of an attribute");
    store.SetAttribute(index_, *utf8, xml::ToUtf8Replacing(value));
}

bool XmlNode::hasChildNodes() const { return StoreOf().FirstChild(index_) != NoNode; }

XmlNode XmlNode::firstChild() const { return {document_, StoreOf().FirstChild(index_)}; }

XmlNode XmlNode::nextSibling() const { return {document_, StoreOf().At(index_).next}; }

std::vector<XmlNode> XmlNode::childNodes() const
{
    Store& store = StoreOf();
    std::vector<XmlNode> children;
    NodeIndex child = store.FirstChild(index_);
    children.reserve(store.At(index_).childCount);
    for (; child != NoNode; child = store.At(child).next)
        children.push_back(XmlNode(document_, child));
    return children;
}

XmlNode XmlNode::selectSingleNode(TextView path) const
{
    Store& store = StoreOf(); // the null handle fails before a malformed path does
    return {document_, xml::SelectFirst(store, index_, xml::ParsePath(path))};
}

XmlNode XmlNode::appendChild(XmlNode child) const
{
    RequireOwnElement(child);
    ElementStore().Append(index_, child.index_);
    return child;
}

XmlNode XmlNode::removeChild(XmlNode child) const
{
    Store& store = ElementStore();
    static_cast<void>(child.StoreOf());
    RequireChild(child);
    store.Remove(child.index_);
    return child;
}

void XmlNode::replaceChild(XmlNode newChild, XmlNode oldChild) const
{
    Store& store = ElementStore();
    static_cast<void>(oldChild.StoreOf());
    RequireChild(oldChild);
    if (newChild == oldChild)
        return;
    RequireOwnElement(newChild);
    store.Replace(newChild.index_, oldChild.index_);
}

void XmlNode::removeChildren() const { ElementStore().Empty(index_); }

XmlNode XmlNode::cloneNode() const { return {document_, ElementStore().Clone(index_)}; }

// An element that stands elsewhere is moved; the root, and what holds this node, can't be.
void XmlNode::RequireOwnElement(XmlNode child) const
{
    Store& store = ElementStore();
    static_cast<void>(child.ElementStore());
    if (child.document_ != document_ || child.index_ == store.Root() || Holds(store, child.index_, index_))
        throw Failure(FailureCode::InvalidProcedureCall,
                      u"The element " + Quoted(child.baseName()) + u" can't become a child of " + Quoted(baseName()));
}

void XmlNode::RequireChild(XmlNode child) const
{
    if (child.document_ != document_ || StoreOf().At(child.index_).parent != index_)
        throw Failure(FailureCode::InvalidProcedureCall,
                      u"The element " + Quoted(child.baseName()) + u" is no child of " + Quoted(baseName()));
}

} // namespace rulemesh
