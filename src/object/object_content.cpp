#include "object/object_content.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace rulemesh {

namespace {

using AttributeNames = std::array<std::string_view, 13>;
constexpr AttributeNames FieldAttributeNames = {"No",   "FNo",  "MAN",  "TYPE",   "LENG",    "DIGB",    "DIGA",
                                                "DSCA", "ADJU", "CASE", "DOMAIN", "INITVAL", "DOMENUMS"};

ScriptContent ScriptOf(XmlNode element, Text StrTable = {})
{
    return {std::move(StrTable), element.text(), element.getNamedItem(u"TEXT").value_or(Text())};
}

FieldContent FieldOf(XmlNode element)
{
    FieldContent field = {element.baseName(), {}};
    std::vector<Text> values = element.getNamedItems(FieldAttributeNames);
    for (std::size_t index = 0; index < values.size(); ++index) {
        if (!values[index].empty())
            field.Attributes.emplace_back(Text(FieldAttributeNames[index].begin(), FieldAttributeNames[index].end()),
                                          std::move(values[index]));
    }
    return field;
}

TableContent TableOf(XmlNode element)
{
    TableContent table = {element.baseName(), {}};
    for (XmlNode field = element.firstChild(); field; field = field.nextSibling())
        table.Fields.push_back(FieldOf(field));
    return table;
}

DumpContent DumpOf(XmlNode element)
{
    DumpContent dump = {element.getNamedItem(u"No").value_or(Text()),
                        element.getNamedItem(u"TT"),
                        element.getNamedItem(u"TXT").value_or(Text()),
                        {}};
    for (XmlNode rule = element.firstChild(); rule; rule = rule.nextSibling())
        dump.Rules.push_back({rule.baseName(), rule.text(), rule.getNamedItem(u"TEXT").value_or(Text())});
    return dump;
}

template <typename Item> void AppendBelow(std::vector<Item>& items, XmlNode parent, Item (*itemOf)(XmlNode))
{
    for (XmlNode child = parent.firstChild(); child; child = child.nextSibling())
        items.push_back(itemOf(child));
}

// Of two elements of one name only the first counts, except for main queries and dumps, which have keys.
class ContentReader {
public:
    explicit ContentReader(XmlNode root) : root_(root) {}

    [[nodiscard]] ObjectContent Read()
    {
        content_.Root = root_.baseName();
        for (XmlNode child = root_.firstChild(); child; child = child.nextSibling())
            Take(child, child.baseName());
        return std::move(content_);
    }

private:
    void Take(XmlNode child, const Text& StrName)
    {
        if (StrName == u"DUMP")
            content_.Dumps.push_back(DumpOf(child));
        else if (StrName == u"QUERY")
            content_.Queries.push_back(ScriptOf(child, child.getNamedItem(u"ST").value_or(Text())));
        else if (std::find(seen_.begin(), seen_.end(), StrName) == seen_.end())
            TakeFirst(child, seen_.emplace_back(StrName));
    }

    void TakeFirst(XmlNode child, const Text& StrName)
    {
        if (StrName == u"SRCTBL")
            content_.SourceTables = child.text();
        else if (StrName == u"PREC")
            content_.Precondition = ScriptOf(child);
        else if (StrName == u"FUNCTIONS")
            content_.Functions = child.text();
        else if (StrName == u"VAR")
            content_.Variables = child.text();
        else if (StrName == u"MSCRIPT")
            AppendBelow<Text>(content_.TargetTables.emplace(), child, [](XmlNode table) { return table.baseName(); });
        else if (StrName == u"SRCTAB")
            AppendBelow(content_.Sources, child, TableOf);
        else if (StrName == u"TARTAB")
            AppendBelow(content_.Targets, child, TableOf);
    }

    XmlNode root_;
    ObjectContent content_;
    std::vector<Text> seen_;
};

} // namespace

TextView FieldContent::Attribute(TextView StrName) const noexcept
{
    const auto found = std::find_if(Attributes.begin(), Attributes.end(),
                                    [&](const auto& attribute) { return attribute.first == StrName; });
    return found == Attributes.end() ? TextView() : TextView(found->second);
}

ObjectContent ContentOf(const XmlDocument& document)
{
    const XmlNode root = document.documentElement();
    return root ? ContentReader(root).Read() : ObjectContent();
}

} // namespace rulemesh
