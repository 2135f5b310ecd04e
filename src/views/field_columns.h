#pragma once

#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

#include "views/list_view.h"

namespace rulemesh {

/// What a column of the field lists tells of a field.
enum class FieldText {
    Front, // nothing: the item's own text
    Mark,
    Number,
    Name,
    Type,
    Length,
    Description,
    Alignment,
    Case,
    Domain,
    InitialValue,
    Enums,
    Rest, // nothing: the room behind the texts
};

/// The two lists that show fields, lstSourceFields and lstTargetFields.
enum class FieldList { Source, Target };

/// How a column stands in a list; the width in twips.
struct ColumnShape {
    int Width = 0;
    bool RightAligned = false;
};

struct FieldColumn {
    FieldText Tells;
    TextView Caption;
    std::string_view Attribute;        // of the field's element; "" where the text is not one attribute's
    std::optional<ColumnShape> Source; // none where the list has no such column
    std::optional<ColumnShape> Target;

    [[nodiscard]] constexpr const std::optional<ColumnShape>& ShapeIn(FieldList list) const noexcept
    {
        return list == FieldList::Source ? Source : Target;
    }
};

/// The columns of the field lists, each behind the one before: what a list shows, where, and out of which attribute.
inline constexpr bool RightAligned = true;
inline constexpr FieldColumn FieldColumns[] = {
    {FieldText::Front, u"", "", {}, {{441}}},
    {FieldText::Mark, u"", "MAN", {{706}}, {{706}}},
    {FieldText::Number, u"No", "FNo", {{882}}, {{882, RightAligned}}},
    {FieldText::Name, u"Field Name", "", {{2381}}, {{2293}}},
    {FieldText::Type, u"Type", "", {{1093}}, {{1093}}},
    {FieldText::Length, u"Length", "", {{882, RightAligned}}, {{882, RightAligned}}},
    {FieldText::Description, u"Description", "DSCA", {{2187}}, {{2187}}},
    {FieldText::Alignment, u"Alignment", "ADJU", {{882}}, {{882}}},
    {FieldText::Case, u"Case", "CASE", {{882}}, {{882}}},
    {FieldText::Domain, u"Domain", "DOMAIN", {{2540}}, {{2540}}},
    {FieldText::InitialValue, u"Initial Value", "INITVAL", {{2540}}, {{2540}}},
    {FieldText::Enums, u"DomEnum", "DOMENUMS", {{2540}}, {{2540}}},
    {FieldText::Rest, u"", "", {}, {{2540}}},
};

/// The position of a column in the rows of a list, from 0; -1 where the list has no such column.
[[nodiscard]] constexpr int PositionIn(FieldList list, FieldText text) noexcept
{
    int position = 0;
    for (const FieldColumn& column : FieldColumns) {
        const bool isShown = column.ShapeIn(list).has_value();
        if (column.Tells == text)
            return isShown ? position : -1;
        if (isShown)
            ++position;
    }
    return -1;
}

/// Positions of the texts in a row of lstTargetFields.
namespace TargetField {
inline constexpr int Front = PositionIn(FieldList::Target, FieldText::Front);
inline constexpr int Mark = PositionIn(FieldList::Target, FieldText::Mark);
inline constexpr int Number = PositionIn(FieldList::Target, FieldText::Number);
inline constexpr int Name = PositionIn(FieldList::Target, FieldText::Name);
inline constexpr int Type = PositionIn(FieldList::Target, FieldText::Type);
inline constexpr int Length = PositionIn(FieldList::Target, FieldText::Length);
inline constexpr int Domain = PositionIn(FieldList::Target, FieldText::Domain);
inline constexpr int Enums = PositionIn(FieldList::Target, FieldText::Enums);
} // namespace TargetField

/// Positions of the texts in a row of lstSourceFields.
namespace SourceField {
inline constexpr int Mark = PositionIn(FieldList::Source, FieldText::Mark);
inline constexpr int Number = PositionIn(FieldList::Source, FieldText::Number);
inline constexpr int Name = PositionIn(FieldList::Source, FieldText::Name);
inline constexpr int Type = PositionIn(FieldList::Source, FieldText::Type);
inline constexpr int Length = PositionIn(FieldList::Source, FieldText::Length);
inline constexpr int Domain = PositionIn(FieldList::Source, FieldText::Domain);
inline constexpr int Enums = PositionIn(FieldList::Source, FieldText::Enums);
} // namespace SourceField

/// The columns of a list as it is designed.
[[nodiscard]] std::vector<ListView::Column> ColumnsOf(FieldList list);

} // namespace rulemesh
