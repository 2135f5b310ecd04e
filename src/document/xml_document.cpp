#include "document/xml_document.h"

#include <utility>

#include "base/failure.h"
#include "document/xml_characters.h"
#include "document/xml_paths.h"
#include "document/xml_saved_nodes.h"
#include "document/xml_store.h"
#include "document/xml_transcode.h"
#include "document/xml_writer.h"

namespace rulemesh {

XmlDocument::XmlDocument() : store_(std::make_unique<xml::Store>()) {}

XmlDocument::~XmlDocument() = default;

bool XmlDocument::loadXML(TextView text)
{
    std::optional<std::string> utf8 = xml::ToUtf8Exactly(text);
    if (!utf8)
        return Load({});
    return Load(std::move(*utf8));
}

bool XmlDocument::loadXML(std::string utf8) { return Load(std::move(utf8)); }

// The old document stands until the new one is whole, so a load that runs out of memory has changed nothing. What it
// costs is the old document's memory on top of the new text's while the load lasts.
bool XmlDocument::Load(std::string utf8)
{
    auto loading = std::make_unique<xml::Store>();
    const bool loaded = loading->Load(std::move(utf8));
    if (!loaded)
        loading = std::make_unique<xml::Store>();
    if (keepsEdits_)
        loading->KeepEdits();
    store_ = std::move(loading);
    ++load_;
    return loaded;
}

Text XmlDocument::xml() const
{
    if (!store_->IsEdited())
        return xml::ToText(store_->Loaded());
    return xml::ToText(xml::Write(*store_));
}

std::string XmlDocument::xmlUtf8() const { return xml::Write(*store_); }

XmlNode XmlDocument::documentElement() const { return {this, store_->Root()}; }

XmlNode XmlDocument::firstChild() const { return {this, store_->First()}; }

XmlNode XmlDocument::selectSingleNode(TextView path) const
{
    return {this, xml::SelectFirst(*store_, xml::NoNode, xml::ParsePath(path))};
}

XmlNode XmlDocument::selectSingleNode(TextView path, TextView keyName, TextView keyValue) const
{
    const xml::Path parsed = xml::ParsePath(path);
    xml::CheckKey(keyName, keyValue);
    const std::optional<std::string> key = xml::ToUtf8Exactly(keyName);
    const std::optional<std::string> value = xml::ToUtf8Exactly(keyValue);
    if (!key || !value)
        return {};
    return {this, xml::SelectFirst(*store_, parsed, *key, *value)};
}

std::vector<XmlNode> XmlDocument::selectNodes(TextView path) const
{
    return Nodes(xml::SelectAll(*store_, xml::ParsePath(path)));
}

std::vector<XmlNode> XmlDocument::getElementsByTagName(TextView name) const
{
    const std::optional<std::string> wanted = xml::ToUtf8Exactly(name);
    if (!wanted)
        return {};
    return Nodes(xml::ElementsNamed(*store_, *wanted));
}

XmlNode XmlDocument::createNode(TextView name)
{
    const std::optional<std::string> utf8 = xml::ToUtf8Exactly(name);
    if (!utf8 || !xml::IsName(*utf8))
        throw Failure(FailureCode::InvalidProcedureCall, Quoted(name) + u" can't be the name of an element");
    return {this, store_->Create(*utf8)};
}

void XmlDocument::KeepEdits()
{
    store_->KeepEdits();
    keepsEdits_ = true;
}

DocumentEdits XmlDocument::TakeEdits() { return DocumentEdits(store_->TakeEdits()); }

void XmlDocument::TakeBack(DocumentEdits& edits) noexcept
{
    if (edits.saved_)
        store_->TakeBack(*edits.saved_);
}

void XmlDocument::DoAgain(DocumentEdits& edits) noexcept
{
    if (edits.saved_)
        store_->DoAgain(*edits.saved_);
}

bool XmlDocument::ChangeText(DocumentEdits& edits) { return !edits.IsEmpty() && store_->ChangeText(*edits.saved_); }

std::vector<XmlNode> XmlDocument::Nodes(const std::vector<std::uint32_t>& indexes) const
{
    std::vector<XmlNode> nodes;
    nodes.reserve(indexes.size());
    for (const std::uint32_t index : indexes)
        nodes.push_back(XmlNode(this, index));
    return nodes;
}

} // namespace rulemesh
