#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "document/xml_document.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

template <typename Action> std::optional<FailureCode> FailureOf(Action action)
{
    try {
        action();
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure.Code();
    }
}

// What the attribute `i` tells of the node; "null" for the null handle.
Text MarkOf(const XmlNode& node) { return node ? node.getNamedItem(u"i").value_or(u"none") : u"null"; }

class XmlPaths : public testing::Test {
protected:
    void Load(std::string text) { ASSERT_TRUE(document_.loadXML(std::move(text))); }

    Text First(TextView path) { return MarkOf(document_.selectSingleNode(path)); }
    Text First(TextView path, TextView key, TextView value)
    {
        return MarkOf(document_.selectSingleNode(path, key, value));
    }
    std::vector<Text> All(TextView path)
    {
        std::vector<Text> marks;
        for (const XmlNode& node : document_.selectNodes(path))
            marks.push_back(MarkOf(node));
        return marks;
    }

    XmlDocument document_;
};

TEST_F(XmlPaths, NameOneElementForEachStep)
{
    Load("<r i='0'><a i='1'/><b i='2'><a i='3'/></b><a i='4'/></r>");
    EXPECT_EQ(First(u"/r"), u"0");
    EXPECT_EQ(First(u"/r/a"), u"1");
    EXPECT_EQ(First(u"/r/b/a"), u"3");
    EXPECT_EQ(First(u"/a"), u"null");
    EXPECT_EQ(First(u"/r/A"), u"null");
    EXPECT_EQ(First(u"/r/b/a/a"), u"null");
    EXPECT_EQ(First(u"/R/a"), u"null");
}

TEST_F(XmlPaths, LookIntoEveryParentOfTheName)
{
    Load("<r><a i='1'/><a i='2'><b i='3'/></a><a i='4'><b i='5' k='x'/><b i='6'/></a></r>");
    EXPECT_EQ(First(u"/r/a/b"), u"3");
    EXPECT_EQ(First(u"/r/a/b", u"k", u"x"), u"5");
    EXPECT_THAT(All(u"/r/a"), ElementsAre(u"1", u"2", u"4"));
    EXPECT_THAT(All(u"/r/a/b"), ElementsAre(u"3", u"5", u"6"));
    EXPECT_THAT(All(u"/r/x"), ElementsAre());
    EXPECT_EQ(All(u"/r").size(), 1U);
}

TEST_F(XmlPaths, KeysCompareExactlyAndTheFirstInTheDocumentWins)
{
    Load("<r i='0' k='&lt;a b'><d k='1' i='1'/><d k='01' i='2'/><d k='1' i='3'/><e k='2' i='4'/><d k='' i='5'/></r>");
    EXPECT_EQ(First(u"/r/d", u"k", u"1"), u"1");
    EXPECT_EQ(First(u"/r/d", u"k", u"01"), u"2");
    EXPECT_EQ(First(u"/r/d", u"k", u"2"), u"null");
    EXPECT_EQ(First(u"/r/d", u"k", u""), u"5");
    EXPECT_EQ(First(u"/r/d", u"x", u""), u"null");
    EXPECT_EQ(First(u"/r", u"k", u"<a b"), u"0");
    EXPECT_EQ(First(u"/r", u"k", u"x"), u"null");
}

TEST_F(XmlPaths, StartAtTheDocumentOrAtTheNode)
{
    Load("<r><a><r i='1'><a i='2'/></r></a></r>");
    const XmlNode inner = document_.selectSingleNode(u"/r/a");
    EXPECT_EQ(MarkOf(inner.selectSingleNode(u"r/a")), u"2");
    EXPECT_EQ(inner.selectSingleNode(u"/r/a"), inner);
    EXPECT_FALSE(inner.selectSingleNode(u"a"));
}

TEST_F(XmlPaths, StayInsideATreeThatIsNotAttached)
{
    Load("<r><a i='1'><b i='2'/></a></r>");
    const XmlNode taken = document_.documentElement().removeChild(document_.selectSingleNode(u"/r/a"));
    EXPECT_EQ(MarkOf(taken.selectSingleNode(u"b")), u"2");
    EXPECT_EQ(First(u"/r/a"), u"null");
}

TEST_F(XmlPaths, MayHoldBlanksWhichMatchNothing)
{
    Load("<r><a/></r>");
    EXPECT_EQ(First(u"/        /a"), u"null");
    EXPECT_EQ(First(u"/r/a b"), u"null");
    EXPECT_EQ(First(u"/r/."), u"null");
    EXPECT_EQ(First(Text(u"/r/a") + char16_t(0xD800)), u"null");
}

TEST_F(XmlPaths, AreMalformedWithAnEmptyStep)
{
    Load("<r><a/></r>");
    for (const TextView path : {u"", u"/", u"//", u"//a", u"/r//a", u"/r/", u"r/"}) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.selectSingleNode(path)); }),
                  FailureCode::InvalidProcedureCall);
        EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.selectNodes(path)); }),
                  FailureCode::InvalidProcedureCall);
        EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.documentElement().selectSingleNode(path)); }),
                  FailureCode::InvalidProcedureCall);
    }
}

TEST_F(XmlPaths, AreMalformedWithAMarkOfTheLanguageInAStep)
{
    Load("<r><a/></r>");
    for (const char16_t mark : TextView(u"()[]'\"@=,|*")) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.selectSingleNode(Text(u"/r/a") + mark)); }),
                  FailureCode::InvalidProcedureCall);
        EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.selectNodes(Text(u"/") + mark + u"/a")); }),
                  FailureCode::InvalidProcedureCall);
    }
}

TEST_F(XmlPaths, AreMalformedInAnEmptyDocumentToo)
{
    EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.selectSingleNode(u"/r//a")); }),
              FailureCode::InvalidProcedureCall);
    EXPECT_EQ(First(u"/r/a"), u"null");
}

TEST_F(XmlPaths, AreMalformedWithAnApostropheInTheKeyValue)
{
    Load("<r><a k=\"'\"/></r>");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.selectSingleNode(u"/r/a", u"k", u"it's")); }),
              FailureCode::InvalidProcedureCall);
    EXPECT_EQ(First(u"/r/a", u"k", u"\"]/"), u"null");
}

// The same document small and large: the large one has indexes.
class XmlPathsWithIndex : public testing::TestWithParam<int> {
protected:
    void SetUp() override
    {
        std::string text = "<r>";
        for (int number = 0; number < GetParam(); ++number)
            text += "<d k='" + std::to_string(number) + "' i='" + std::to_string(number) + "'/>";
        ASSERT_TRUE(document_.loadXML(text + "</r>"));
        root_ = document_.documentElement();
        ASSERT_EQ(Keyed(u"2"), u"2");
        ASSERT_EQ(MarkOf(document_.selectSingleNode(u"/r/d")), u"0");
    }

    Text Keyed(TextView value) { return MarkOf(document_.selectSingleNode(u"/r/d", u"k", value)); }

    XmlNode New(TextView name, TextView key, TextView mark)
    {
        const XmlNode node = document_.createNode(name);
        node.setNamedItem(u"k", key);
        node.setNamedItem(u"i", mark);
        return node;
    }

    XmlDocument document_;
    XmlNode root_;
};

TEST_P(XmlPathsWithIndex, FollowAppending)
{
    root_.appendChild(New(u"d", u"new", u"n1"));
    root_.appendChild(New(u"d", u"new", u"n2"));
    root_.appendChild(New(u"d", u"2", u"n3"));
    root_.appendChild(New(u"e", u"2", u"n4"));
    EXPECT_EQ(Keyed(u"new"), u"n1");
    EXPECT_EQ(Keyed(u"2"), u"2");
    EXPECT_EQ(MarkOf(document_.selectSingleNode(u"/r/e")), u"n4");
}

TEST_P(XmlPathsWithIndex, FollowRemoving)
{
    root_.appendChild(New(u"d", u"0", u"n1"));
    root_.removeChild(root_.firstChild());
    EXPECT_EQ(Keyed(u"0"), u"n1");
    EXPECT_EQ(MarkOf(document_.selectSingleNode(u"/r/d")), u"1");
    EXPECT_EQ(document_.selectNodes(u"/r/d").size(), static_cast<std::size_t>(GetParam()));
}

TEST_P(XmlPathsWithIndex, FollowReplacing)
{
    root_.replaceChild(New(u"d", u"3", u"n1"), root_.firstChild());
    EXPECT_EQ(Keyed(u"3"), u"n1");
    EXPECT_EQ(Keyed(u"0"), u"null");
    EXPECT_EQ(MarkOf(document_.selectSingleNode(u"/r/d")), u"n1");
    EXPECT_EQ(MarkOf(document_.selectNodes(u"/r/d").front()), u"n1");
}

TEST_P(XmlPathsWithIndex, FollowReplacingThereAndBack)
{
    const XmlNode old = root_.firstChild();
    const XmlNode other = New(u"d", u"x", u"n1");
    root_.replaceChild(other, old);
    root_.replaceChild(old, other);
    EXPECT_EQ(Keyed(u"0"), u"0");
    EXPECT_EQ(Keyed(u"x"), u"null");
    EXPECT_EQ(document_.selectNodes(u"/r/d").size(), static_cast<std::size_t>(GetParam()));
}

TEST_P(XmlPathsWithIndex, FollowAChangedKey)
{
    const XmlNode node = document_.selectSingleNode(u"/r/d", u"k", u"1");
    node.setNamedItem(u"k", u"2");
    EXPECT_EQ(Keyed(u"2"), u"1");
    EXPECT_EQ(Keyed(u"1"), u"null");
    node.setNamedItem(u"k", u"1");
    EXPECT_EQ(Keyed(u"2"), u"2");
    EXPECT_EQ(Keyed(u"1"), u"1");
}

TEST_P(XmlPathsWithIndex, FollowEmptyingAndFillingAnew)
{
    root_.removeChildren();
    EXPECT_EQ(Keyed(u"1"), u"null");
    root_.appendChild(New(u"d", u"1", u"n1"));
    EXPECT_EQ(Keyed(u"1"), u"n1");
}

TEST_P(XmlPathsWithIndex, ForgetsWhatMovedToAnotherParent)
{
    const XmlNode holder = root_.appendChild(document_.createNode(u"h"));
    holder.appendChild(root_.removeChild(root_.firstChild()));
    EXPECT_EQ(Keyed(u"0"), u"null");
    EXPECT_EQ(MarkOf(document_.selectSingleNode(u"/r/h/d", u"k", u"0")), u"0");
}

INSTANTIATE_TEST_SUITE_P(Children, XmlPathsWithIndex, testing::Values(4, 100));

} // namespace
} // namespace rulemesh
