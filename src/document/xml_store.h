#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "document/xml_attributes.h"
#include "document/xml_child_index.h"
#include "document/xml_document.h"
#include "document/xml_names.h"
#include "document/xml_parser.h"

namespace rulemesh::xml {

inline constexpr NodeIndex NoNode = 0;

struct SavedNode;
struct SavedNodes;

/// A node that somebody has reached. It knows its stretch of the loaded text; its children get nodes of their own when
/// they are first asked for.
struct Node {
    Slice loaded; // empty when the node was made by the program

    /// Orders the siblings. A child that came with the parent's text, or took the place of one, has the offset of that
    /// place; one that was appended has a number behind all offsets.
    std::size_t slot = 0;

    NodeIndex parent = NoNode;
    NodeIndex previous = NoNode;
    NodeIndex next = NoNode;
    NodeIndex first = NoNode;
    NodeIndex last = NoNode;
    std::uint32_t childCount = 0;
    NameId name = NoName;
    std::uint32_t details = 0; // see Store::DetailsOf
    std::uint32_t savedIn = 0; // the edition of the journal that has this record as it was

    bool isElement = true;
    bool hasChildNodes = false; // the children have their nodes
    bool isEdited = false;      // something here or below differs from the loaded text
    bool isInPlace = false;     // stands where the parent's text has it
};

/// What the content of an element is made of.
enum class Content : std::uint8_t {
    Loaded,   // the text that came, without the stretches that were removed, with the children at their slots; then
              // the children that were appended
    Written,  // one text, then the children that were appended; what reads like the content that came is given back
              // in the form in which it came
    Rewritten // the same, but the content that came is gone for good
};

/// What only a few nodes have: edits and indexes.
struct Details {
    Content content = Content::Loaded;
    CarriageReturns returns = CarriageReturns::AsLineEnds;
    std::string written;
    std::vector<Slice> removed;

    std::unique_ptr<AttributeList> attributes; // null as long as the loaded start tag says it all
    std::unique_ptr<ChildIndex> index;
};

/// Where the parts of a loaded element lie.
struct Parts {
    std::size_t tagEnd = 0; // behind the start tag
    Slice content;
    bool isEmptyTag = false; // <X/>
};

/// The nodes of a document over its text. XmlDocument has checked what it hands down, so nothing goes wrong here but
/// for want of memory. What fails then (std::bad_alloc) has done nothing: an edit leaves the document as it was, and a
/// look-up leaves no nodes, attributes or index behind that are half made.
class Store {
public:
    Store();
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    /// Takes over a text in UTF-8; a store loads once, and is of no use after a failure. False when the text is not
    /// well-formed.
    [[nodiscard]] bool Load(std::string text);

    [[nodiscard]] std::string_view Loaded() const noexcept { return text_; }
    [[nodiscard]] bool IsEdited() const noexcept { return At(root_).isEdited; }
    [[nodiscard]] NodeIndex Root() const noexcept { return root_; }
    [[nodiscard]] NodeIndex First() const noexcept { return first_; }
    [[nodiscard]] NodeIndex NodeCount() const noexcept { return nodeCount_; }
    [[nodiscard]] const Node& At(NodeIndex node) const noexcept
    {
        return (*blocks_[node / BlockSize])[node % BlockSize];
    }
    [[nodiscard]] NameTable& Names() noexcept { return names_; }

    [[nodiscard]] NodeIndex FirstChild(NodeIndex parent);
    [[nodiscard]] NodeIndex FirstChild(NodeIndex parent, std::string_view name);
    [[nodiscard]] NodeIndex FirstChild(NodeIndex parent, std::string_view name, std::string_view key,
                                       std::string_view value);
    [[nodiscard]] NodeIndex NextSibling(NodeIndex node, std::string_view name) const noexcept;
    [[nodiscard]] std::vector<NodeIndex> Children(NodeIndex parent, std::string_view name);

    [[nodiscard]] NodeIndex Create(std::string_view name);
    [[nodiscard]] NodeIndex Clone(NodeIndex node);

    /// Puts a child behind the others. One that stands elsewhere is taken out of there, here and in Replace.
    void Append(NodeIndex parent, NodeIndex child);
    void Remove(NodeIndex child);
    void Replace(NodeIndex newChild, NodeIndex oldChild);
    void WriteText(NodeIndex node, std::string text, CarriageReturns returns);
    void Empty(NodeIndex node);

    [[nodiscard]] std::optional<std::string> Attribute(NodeIndex node, std::string_view name);
    [[nodiscard]] std::optional<std::string> Attribute(NodeIndex node, NameId name);
    [[nodiscard]] bool HasAttribute(NodeIndex node, NameId name, std::string_view value);

    /// Hands the value of each of the attributes that the node has to `take`, with the place of its name.
    void ReadAttributes(NodeIndex node, std::span<const std::string_view> names,
                        const std::function<void(std::size_t name, const std::string& value)>& take);
    void SetAttribute(NodeIndex node, std::string_view name, std::string value);

    /// From now on the records that edits touch are kept as they were.
    void KeepEdits();

    /// The records that were touched since the last call.
    [[nodiscard]] std::unique_ptr<SavedNodes> TakeEdits();

    /// Takes back the edits that were made last, and does again what was taken back last.
    void TakeBack(SavedNodes& edits) noexcept;
    void DoAgain(SavedNodes& edits) noexcept;

    /// Whether the document's text differs from what it was before these edits, which were made last.
    [[nodiscard]] bool ChangeText(SavedNodes& edits);

    /// Null when the node has none.
    [[nodiscard]] const Details* DetailsOf(NodeIndex node) const noexcept;
    [[nodiscard]] Parts PartsOf(NodeIndex node) const noexcept;

    /// The stretches that are removed from the content of a node with details, in the order of the text.
    [[nodiscard]] const std::vector<Slice>& SortedRemovals(NodeIndex node);

private:
    static constexpr NodeIndex BlockSize = 256;
    static constexpr std::uint32_t FewChildren = 16;
    static constexpr std::size_t ManyAttributes = 64;
    using Block = std::array<Node, BlockSize>;

    [[nodiscard]] Node& NodeAt(NodeIndex node) noexcept { return (*blocks_[node / BlockSize])[node % BlockSize]; }
    class Making;

    [[nodiscard]] NodeIndex NewNode();
    [[nodiscard]] Details& MakeDetails(NodeIndex node);
    [[nodiscard]] AttributeList& MakeAttributes(NodeIndex node);
    [[nodiscard]] ChildIndex& IndexOf(NodeIndex parent);
    [[nodiscard]] NodeIndex CloneAlone(NodeIndex node);

    void FindChildren(NodeIndex parent);
    void AddLoadedChild(NodeIndex parent, Slice slice);
    void MakeRoomForRemovals(NodeIndex parent, std::size_t count);
    void TakeOut(NodeIndex child) noexcept;
    void NoteRemoval(NodeIndex child) noexcept;
    void LinkLast(NodeIndex parent, NodeIndex child) noexcept;
    void Unlink(NodeIndex child) noexcept;
    void DetachChildren(NodeIndex parent) noexcept;
    void MarkEdited(NodeIndex node) noexcept;
    template <typename Tell> void TellIndex(NodeIndex parent, Tell tell) noexcept
    {
        Details* const holder = details_[At(parent).details].get();
        if (holder == nullptr || !holder->index)
            return;
        // An index that lacks the memory to take it in is dropped; the next look-up makes it anew.
        try {
            tell(*holder->index);
        } catch (const std::bad_alloc&) {
            holder->index = nullptr;
        }
    }

    void Touch(NodeIndex node);
    void TouchPlace(NodeIndex child);
    void TouchWayUp(NodeIndex node);
    void Swap(SavedNode& saved) noexcept;
    void TellIndexes(const SavedNodes& edits) noexcept;
    [[nodiscard]] bool IsAttached(NodeIndex node) const noexcept;
    void ReplaceContent(NodeIndex node, Content content, std::string text, CarriageReturns returns);
    [[nodiscard]] bool HasLoadedContent(NodeIndex node) const noexcept;

    std::string owned_;
    std::string_view text_;
    Outline outline_;
    NameTable names_;
    std::vector<std::unique_ptr<Block>> blocks_;
    NodeIndex nodeCount_ = 0;
    std::vector<std::unique_ptr<Details>> details_; // the first stands for none
    NodeIndex root_ = NoNode;
    NodeIndex first_ = NoNode;
    std::size_t nextSlot_ = 0;
    bool keepsEdits_ = false;
    std::uint32_t edition_ = 1;
    std::unique_ptr<SavedNodes> saved_;
};

} // namespace rulemesh::xml
