#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "document/xml_document.h"

// Random edits on random documents, done on the document and on a plain tree that keeps everything decoded and looks
// for everything by walking. After each edit both must give the same answers; now and then the document is written and
// what is read from the text must be the same tree again.

namespace rulemesh {
namespace {

struct PlainNode {
    Text name;
    std::vector<std::pair<Text, Text>> attributes;
    Text text; // in front of the children
    std::vector<std::shared_ptr<PlainNode>> children;
    XmlNode handle;

    [[nodiscard]] const Text* Value(const Text& key) const
    {
        for (const auto& [attribute, value] : attributes) {
            if (attribute == key)
                return &value;
        }
        return nullptr;
    }
    void Set(const Text& key, const Text& value)
    {
        for (auto& [attribute, old] : attributes) {
            if (attribute == key) {
                old = value;
                return;
            }
        }
        attributes.emplace_back(key, value);
    }
};

using Plain = std::shared_ptr<PlainNode>;

Text TrimmedText(TextView text)
{
    const std::size_t first = text.find_first_not_of(u" \t\r\n");
    return first == TextView::npos ? Text() : Text(text.substr(first, text.find_last_not_of(u" \t\r\n") - first + 1));
}

Text TextBelow(const Plain& node)
{
    Text text = node->text;
    for (const Plain& child : node->children)
        text += TextBelow(child);
    return text;
}

Plain Copy(const Plain& node)
{
    Plain copy = std::make_shared<PlainNode>(*node);
    for (Plain& child : copy->children)
        child = Copy(child);
    return copy;
}

class Session {
public:
    explicit Session(unsigned seed) : random_(seed) {}

    void Play(int edits)
    {
        root_ = RandomTree(0);
        ASSERT_TRUE(document_.loadXML(Markup(root_)));
        Bind(root_, document_.documentElement());
        for (int edit = 0; edit < edits && !testing::Test::HasFatalFailure(); ++edit) {
            Edit();
            CheckLookUps();
            if (edit % 8 == 0) {
                SCOPED_TRACE("edit " + std::to_string(edit));
                CheckWritten();
            }
        }
        Compare(root_, document_.documentElement());
    }

private:
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
    bool OneOf(int count) { return Below(count) == 0; }

    Text Name() { return Text(1, static_cast<char16_t>(u"abc"[Below(3)])); }
    Text Key() { return Text(1, static_cast<char16_t>(u"kl"[Below(2)])); }
    Text Value() { return OneOf(4) ? RandomText() : Text(1, static_cast<char16_t>(u'0' + Below(8))); }

    // Without carriage returns, as those of a written text may come back as line feeds.
    Text RandomText()
    {
        static const std::vector<Text> Pieces = {u"x",  u"<",  u">",   u"&",      u"\"",         u"'",    u" ",
                                                 u"\n", u"\t", u"]]>", u"\u00E4", u"\U0001F600", u"word", u"&lt;"};
        Text text;
        for (int pieces = Below(4); pieces > 0; --pieces)
            text += Pieces[static_cast<std::size_t>(Below(static_cast<int>(Pieces.size())))];
        return text;
    }

    // Without white space at the ends, which a text that reads like what came takes over from that.
    Text RandomContent() { return TrimmedText(RandomText()); }

    Plain RandomTree(int depth)
    {
        Plain node = std::make_shared<PlainNode>();
        node->name = Name();
        for (int count = Below(3); count > 0; --count)
            node->Set(Key(), Value());
        if (OneOf(2))
            node->text = RandomContent();
        const int children = depth == 0 ? 1 + Below(60) : depth < 4 ? Below(OneOf(6) ? 40 : 4) : 0;
        for (int count = 0; count < children; ++count)
            node->children.push_back(RandomTree(depth + 1));
        return node;
    }

    // One of the many ways to write a character.
    Text Escaped(TextView text, bool isValue)
    {
        Text markup;
        for (const char16_t unit : text) {
            const bool isSpecial = unit == u'<' || unit == u'&' || unit == u'>' || unit == u'"' || unit == u'\'' ||
                                   (isValue && (unit == u'\n' || unit == u'\t'));
            if (isSpecial || (unit < 0x80 && OneOf(20)))
                markup += Reference(unit);
            else
                markup += unit == u'\n' && OneOf(3) ? Text(u"\r\n") : Text(1, unit);
        }
        return markup;
    }

    Text Reference(char16_t unit)
    {
        if (unit == u'<' && OneOf(2))
            return u"&lt;";
        const std::string digits = std::to_string(static_cast<int>(unit));
        return u"&#" + Text(digits.begin(), digits.end()) + u";";
    }

    Text Markup(const Plain& node)
    {
        Text markup = u"<" + node->name;
        for (const auto& [key, value] : node->attributes)
            markup += (OneOf(3) ? u"\n " : u" ") + key + (OneOf(3) ? u" = '" : u"='") + Escaped(value, true) + u"'";
        if (node->text.empty() && node->children.empty() && OneOf(2))
            return markup + (OneOf(2) ? u" />" : u"/>");
        markup += u">";
        if (!node->text.empty())
            markup += OneOf(4) && node->text.find(u"]]>") == Text::npos ? u"<![CDATA[" + node->text + u"]]>"
                                                                        : Escaped(node->text, false);
        for (const Plain& child : node->children)
            markup += (OneOf(4) ? u"<!-- <c> -->" : OneOf(4) ? u"<?p </a>?>" : u"") + Markup(child);
        return markup + u"</" + node->name + u">";
    }

    static void Bind(const Plain& node, XmlNode handle)
    {
        node->handle = handle;
        const std::vector<XmlNode> children = handle.childNodes();
        ASSERT_EQ(children.size(), node->children.size());
        for (std::size_t at = 0; at < children.size(); ++at)
            Bind(node->children[at], children[at]);
    }

    Plain RandomElement()
    {
        Plain node = root_;
        while (!node->children.empty() && !OneOf(3))
            node = node->children[static_cast<std::size_t>(Below(static_cast<int>(node->children.size())))];
        return node;
    }

    Plain Made()
    {
        if (!spare_.empty() && OneOf(2)) {
            Plain taken = spare_.back();
            spare_.pop_back();
            return taken;
        }
        if (OneOf(2)) {
            const Plain original = RandomElement();
            Plain clone = Copy(original);
            Bind(clone, original->handle.cloneNode());
            return clone;
        }
        Plain made = std::make_shared<PlainNode>();
        made->name = Name();
        made->handle = document_.createNode(made->name);
        return made;
    }

    void Edit()
    {
        const Plain node = RandomElement();
        const int children = static_cast<int>(node->children.size());
        switch (Below(7)) {
        case 0:
        case 1: {
            const Text key = Key();
            const Text value = Value();
            node->Set(key, value);
            node->handle.setNamedItem(key, value);
            break;
        }
        case 2:
            WriteText(node);
            break;
        case 3:
            if (size_ < 3000) {
                node->children.push_back(Made());
                EXPECT_EQ(node->handle.appendChild(node->children.back()->handle), node->children.back()->handle);
            }
            break;
        case 4:
            if (children > 0) {
                const auto at = node->children.begin() + Below(children);
                node->handle.removeChild((*at)->handle);
                spare_.push_back(*at);
                node->children.erase(at);
            }
            break;
        case 5:
            if (children > 0 && size_ < 3000) {
                Plain made = Made();
                Plain& place = node->children[static_cast<std::size_t>(Below(children))];
                node->handle.replaceChild(made->handle, place->handle);
                spare_.push_back(place);
                place = made;
            }
            break;
        default:
            if (children > 0 && OneOf(6)) {
                node->handle.removeChildren();
                node->children.clear();
                node->text.clear();
            }
        }
    }

    // Not on a node with children: a text that reads like what came would bring these back when it is written.
    void WriteText(const Plain& node)
    {
        if (!node->children.empty())
            return;
        node->text = OneOf(3) ? node->text : RandomContent();
        node->handle.text(node->text);
        EXPECT_EQ(node->handle.text(), TrimmedText(node->text));
    }

    void CheckLookUps()
    {
        const Plain parent = RandomElement();
        const Text name = Name();
        const Text key = Key();
        const Text value = Text(1, static_cast<char16_t>(u'0' + Below(8)));
        const auto hasName = [&](const Plain& child) { return child->name == name; };
        const auto hasKey = [&](const Plain& child) {
            return child->name == name && child->Value(key) != nullptr && *child->Value(key) == value;
        };
        EXPECT_EQ(parent->handle.selectSingleNode(name), FirstHandle(parent->children, hasName));
        const Text path = u"/" + root_->name + u"/" + name;
        EXPECT_EQ(document_.selectSingleNode(path), FirstHandle(root_->children, hasName));
        EXPECT_EQ(document_.selectSingleNode(path, key, value), FirstHandle(root_->children, hasKey));
        CheckGrandchildren(path, name, key, value);
    }

    void CheckGrandchildren(const Text& path, const Text& name, const Text& key, const Text& value)
    {
        const Text inner = Name();
        std::vector<XmlNode> all;
        XmlNode keyed;
        for (const Plain& child : root_->children) {
            if (child->name != name)
                continue;
            for (const Plain& grandchild : child->children) {
                if (grandchild->name != inner)
                    continue;
                all.push_back(grandchild->handle);
                if (!keyed && grandchild->Value(key) != nullptr && *grandchild->Value(key) == value)
                    keyed = grandchild->handle;
            }
        }
        EXPECT_EQ(document_.selectNodes(path + u"/" + inner), all);
        EXPECT_EQ(document_.selectSingleNode(path + u"/" + inner), all.empty() ? XmlNode() : all.front());
        EXPECT_EQ(document_.selectSingleNode(path + u"/" + inner, key, value), keyed);
    }

    template <typename Matches> static XmlNode FirstHandle(const std::vector<Plain>& nodes, Matches matches)
    {
        const auto found = std::find_if(nodes.begin(), nodes.end(), matches);
        return found == nodes.end() ? XmlNode() : (*found)->handle;
    }

    void CheckWritten()
    {
        XmlDocument again;
        ASSERT_TRUE(again.loadXML(document_.xml()));
        size_ = 0;
        Compare(root_, again.documentElement());
    }

    void Compare(const Plain& node, XmlNode handle)
    {
        ++size_;
        EXPECT_EQ(handle.baseName(), node->name);
        EXPECT_EQ(handle.text(), TrimmedText(TextBelow(node)));
        for (const Text& key : {Text(u"k"), Text(u"l")}) {
            const Text* const value = node->Value(key);
            EXPECT_EQ(handle.getNamedItem(key), value == nullptr ? std::nullopt : std::optional<Text>(*value));
        }
        const std::vector<XmlNode> children = handle.childNodes();
        ASSERT_EQ(children.size(), node->children.size());
        for (std::size_t at = 0; at < children.size(); ++at)
            Compare(node->children[at], children[at]);
    }

    std::mt19937 random_;
    XmlDocument document_;
    Plain root_;
    std::vector<Plain> spare_;
    int size_ = 0;
};

class XmlProperty : public testing::TestWithParam<unsigned> {};

TEST_P(XmlProperty, AnswersLikeAPlainTree) { Session(GetParam()).Play(300); }

INSTANTIATE_TEST_SUITE_P(Seeds, XmlProperty, testing::Range(0U, 30U));

} // namespace
} // namespace rulemesh
