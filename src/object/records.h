#pragma once

#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "document/xml_document.h"

namespace rulemesh {

/// A part of a mapping object, as MappingReader answers it: a light value that looks into the document and only reads.
/// A null record is an ordinary answer, tested with `if (record)`; asking it anything raises ObjectVariableNotSet, and
/// so does a record of an object that was replaced by another one. A record stays valid until its element is removed.
class Record {
public:
    Record() = default;
    explicit Record(XmlNode node) noexcept : node_(node) {}

    [[nodiscard]] explicit operator bool() const noexcept { return static_cast<bool>(node_); }

protected:
    /// The value of an attribute, "" when it is absent.
    [[nodiscard]] Text Attribute(TextView StrName) const;

    friend class MappingObject;
    XmlNode node_;
};

/// The children of a record, in the order of the document.
template <typename Child> class RecordRange {
public:
    explicit RecordRange(XmlNode first) noexcept : first_(first) {}

    class iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Child;
        using difference_type = std::ptrdiff_t;
        using pointer = const Child*;
        using reference = Child;

        explicit iterator(XmlNode node) noexcept : node_(node) {}
        [[nodiscard]] Child operator*() const { return Child(node_); }
        iterator& operator++()
        {
            node_ = node_.nextSibling();
            return *this;
        }
        void operator++(int) { ++*this; }
        friend bool operator==(const iterator&, const iterator&) = default;

    private:
        XmlNode node_;
    };

    [[nodiscard]] iterator begin() const { return iterator(first_); }
    [[nodiscard]] iterator end() const { return iterator(XmlNode()); }

private:
    XmlNode first_;
};

/// A field of a table of the catalogue.
class FieldRecord : public Record {
public:
    using Record::Record;

    /// The name of its element.
    [[nodiscard]] Text Name() const { return node_.baseName(); }

    /// The attribute No; nothing when it is absent.
    [[nodiscard]] std::optional<Text> Number() const { return node_.getNamedItem(u"No"); }

    /// Its row in the grid, from 0: one below its number. Raises what the conversion of the number raises.
    [[nodiscard]] std::int16_t Row() const;

    /// The values of several attributes, named in UTF-8, in one look at the field; "" for one that is absent.
    [[nodiscard]] std::vector<Text> Attributes(std::span<const std::string_view> names) const
    {
        return node_.getNamedItems(names);
    }

    /// The word for its type, with its length in StrLength; an unknown type gives "" and leaves StrLength as it is.
    [[nodiscard]] Text Type(Text& StrLength) const;
};

/// A table of the catalogue.
class TableRecord : public Record {
public:
    using Record::Record;

    [[nodiscard]] Text Name() const { return node_.baseName(); }
    [[nodiscard]] RecordRange<FieldRecord> Fields() const { return RecordRange<FieldRecord>(node_.firstChild()); }

    /// The field of that name, or null. Raises InvalidProcedureCall for a name that can't stand in a path.
    [[nodiscard]] FieldRecord Field(TextView StrName) const { return FieldRecord(node_.selectSingleNode(StrName)); }
};

/// The rule of a field in a dump.
class RuleRecord : public Record {
public:
    using Record::Record;

    [[nodiscard]] Text Rule() const { return node_.text(); }
    [[nodiscard]] Text Note() const { return Attribute(u"TEXT"); }

    /// Whether there is anything to lose: a rule or a note.
    [[nodiscard]] bool HasContent() const { return !Rule().empty() || !Note().empty(); }
};

/// A dump with its rules.
class DumpRecord : public Record {
public:
    using Record::Record;

    [[nodiscard]] Text Number() const { return Attribute(u"No"); }

    /// The table that it fills as it stands there, "" where none does. GetDumpTargetTable knows what "" means.
    [[nodiscard]] Text Table() const { return Attribute(u"TT"); }
    [[nodiscard]] Text Description() const { return Attribute(u"TT_DESC"); }

    [[nodiscard]] bool HasRecords() const { return node_.hasChildNodes(); }
    [[nodiscard]] RecordRange<RuleRecord> Rules() const { return RecordRange<RuleRecord>(node_.firstChild()); }

    /// The rule of a field given by the name of its element, or null. Raises InvalidProcedureCall for a name that can't
    /// stand in a path.
    [[nodiscard]] RuleRecord Rule(TextView StrField) const { return RuleRecord(node_.selectSingleNode(StrField)); }
};

/// The precondition, a main query, or another text right below the root.
class ScriptRecord : public Record {
public:
    using Record::Record;

    [[nodiscard]] Text Script() const { return node_.text(); }
    [[nodiscard]] Text Note() const { return Attribute(u"TEXT"); }

    /// The table of a main query; nothing when it names none.
    [[nodiscard]] std::optional<Text> Table() const { return node_.getNamedItem(u"ST"); }
};

/// The same dump, which must be there. Raises ObjectVariableNotSet, which names it, for the null record.
DumpRecord RequireDump(DumpRecord dump, std::int16_t IntDump);

} // namespace rulemesh
