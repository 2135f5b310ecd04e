#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "document/xml_document.h"

namespace rulemesh {
namespace {

template <typename Action> std::optional<FailureCode> FailureOf(Action action)
{
    try {
        action();
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure.Code();
    }
}

class XmlEdits : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(document_.loadXML(std::string("<r><a><b/></a><c/></r>")));
        root_ = document_.documentElement();
        a_ = root_.firstChild();
        c_ = a_.nextSibling();
    }

    XmlDocument document_;
    XmlNode root_;
    XmlNode a_;
    XmlNode c_;
};

TEST_F(XmlEdits, AppendReturnsTheChildAtTheEnd)
{
    const XmlNode made = document_.createNode(u"d");
    EXPECT_EQ(root_.appendChild(made), made);
    EXPECT_EQ(c_.nextSibling(), made);
    EXPECT_EQ(made.baseName(), u"d");
    EXPECT_EQ(made.text(), u"");
    EXPECT_FALSE(made.hasChildNodes());
}

TEST_F(XmlEdits, NamesMustBeXmlNames)
{
    for (const TextView name : {u"", u"1a", u"a b", u"-a", u"a/", u"\u00D7"}) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(document_.createNode(name)); }), FailureCode::InvalidProcedureCall);
        EXPECT_EQ(FailureOf([&] { a_.setNamedItem(name, u""); }), FailureCode::InvalidProcedureCall);
    }
    EXPECT_EQ(document_.createNode(u"_:\u00E41.-").baseName(), u"_:\u00E41.-");
}

TEST_F(XmlEdits, RemoveReturnsAWholeElement)
{
    EXPECT_EQ(root_.removeChild(a_), a_);
    EXPECT_EQ(root_.firstChild(), c_);
    EXPECT_FALSE(a_.nextSibling());
    EXPECT_EQ(a_.firstChild().baseName(), u"b");
}

TEST_F(XmlEdits, RemoveTakesChildrenOnly)
{
    EXPECT_EQ(FailureOf([&] { root_.removeChild(a_.firstChild()); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { root_.removeChild(root_); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { root_.removeChild(document_.createNode(u"x")); }), FailureCode::InvalidProcedureCall);
}

TEST_F(XmlEdits, ReplaceTakesChildrenOnly)
{
    const XmlNode made = document_.createNode(u"x");
    EXPECT_EQ(FailureOf([&] { root_.replaceChild(made, a_.firstChild()); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(document_.xmlUtf8(), "<r><a><b/></a><c/></r>");
}

TEST_F(XmlEdits, NobodyBecomesAChildOfItself)
{
    EXPECT_EQ(FailureOf([&] { a_.appendChild(a_); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { a_.firstChild().appendChild(a_); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { document_.createNode(u"x").appendChild(root_); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { a_.replaceChild(root_, a_.firstChild()); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(document_.xmlUtf8(), "<r><a><b/></a><c/></r>");
}

TEST_F(XmlEdits, NobodyMovesToAnotherDocument)
{
    XmlDocument other;
    const XmlNode stranger = other.createNode(u"x");
    EXPECT_EQ(FailureOf([&] { a_.appendChild(stranger); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { root_.removeChild(stranger); }), FailureCode::InvalidProcedureCall);
}

TEST_F(XmlEdits, AppendMovesAChildThatStandsElsewhere)
{
    c_.appendChild(a_.firstChild());
    root_.appendChild(a_);
    EXPECT_EQ(document_.xmlUtf8(), "<r><c><b/></c><a></a></r>");
}

TEST_F(XmlEdits, ReplaceMovesASibling)
{
    root_.replaceChild(c_, a_);
    EXPECT_EQ(document_.xmlUtf8(), "<r><c/></r>");
    EXPECT_EQ(root_.childNodes().size(), 1U);
}

TEST_F(XmlEdits, ReplacingANodeByItselfChangesNothing)
{
    root_.replaceChild(a_, a_);
    EXPECT_EQ(document_.xmlUtf8(), "<r><a><b/></a><c/></r>");
}

TEST_F(XmlEdits, AWalkOverTheChildrenOutlivesTheRemovalOfEach)
{
    for (const XmlNode& child : root_.childNodes())
        root_.removeChild(child);
    EXPECT_FALSE(root_.hasChildNodes());
    EXPECT_EQ(document_.xmlUtf8(), "<r></r>");
}

TEST_F(XmlEdits, WrittenTextReplacesTheChildren)
{
    root_.text(u"x");
    EXPECT_FALSE(root_.hasChildNodes());
    EXPECT_FALSE(document_.selectSingleNode(u"/r/a"));
    EXPECT_EQ(root_.text(), u"x");
}

TEST_F(XmlEdits, TheTextOfAParentHoldsWhatWasWrittenBelow)
{
    c_.text(u"2");
    a_.firstChild().text(u"1");
    root_.appendChild(document_.createNode(u"d")).text(u" 3 ");
    EXPECT_EQ(root_.text(), u"12 3");
}

TEST_F(XmlEdits, AnAddedAttributeIsRead)
{
    a_.setNamedItem(u"k", u"1");
    a_.setNamedItem(u"k", u"2");
    EXPECT_EQ(a_.getNamedItem(u"k"), u"2");
    EXPECT_EQ(document_.xmlUtf8(), "<r><a k=\"2\"><b/></a><c/></r>");
}

TEST_F(XmlEdits, AHandleOfAnEarlierLoadRaises)
{
    for (int count = 0; count < 10; ++count)
        a_ = root_.appendChild(document_.createNode(u"x"));
    ASSERT_TRUE(document_.loadXML(std::string("<r/>")));
    EXPECT_EQ(FailureOf([&] { static_cast<void>(a_.text()); }), FailureCode::ObjectVariableNotSet);
}

} // namespace
} // namespace rulemesh
