// Every edit, load and look-up of the document under an allocation that fails: the first, the second and so on, until
// none does. The document is then as it was or as it would be, and goes on working.

#include <functional>
#include <memory>
#include <new>
#include <string>

#include <gmock/gmock.h>

#include "document/xml_document.h"
#include "support/failing_memory.h"

namespace rulemesh {
namespace {

// Longer than what a string holds without memory of its own.
constexpr TextView LongText = u"a text & more that needs memory of its own\r\n";
constexpr const char* LongValue = "a value that needs memory of its own";

std::string Repeat(int count, const std::function<std::string(int)>& part)
{
    std::string text;
    for (int number = 0; number < count; ++number)
        text += part(number);
    return text;
}

std::string Attributes(int count)
{
    return Repeat(count, [](int number) {
        return " a" + std::to_string(number) + "='" + LongValue + std::to_string(number) + "'";
    });
}

// Parents with few and with many children, tags with few, more and a great many attributes, text and comments between.
std::string Sample()
{
    return "<root>\n  <FEW note='" + std::string(LongValue) +
           "'>one <!-- c --><A/><B k='1'>two</B></FEW>\n"
           "  <MORE" +
           Attributes(15) + "/><HUGE" + Attributes(80) + "/>\n  <MANY>" +
           Repeat(130,
                  [](int number) {
                      return "<D No='" + std::to_string(number) + "' T='" + LongValue + "'><R>r</R></D>\n";
                  }) +
           "</MANY>\n</root>";
}

// What a reader sees of a document, without its spelling: a written line end reads as a line feed when it comes again.
std::string Seen(const XmlDocument& document)
{
    std::string seen;
    for (const TextView name : {u"root", u"FEW", u"MORE", u"HUGE", u"MANY", u"A", u"B", u"D", u"R", u"NEW"}) {
        for (const XmlNode node : document.getElementsByTagName(name)) {
            const auto add = [&](const Text& text) { seen.append(text.begin(), text.end()).append("|"); };
            add(node.baseName());
            add(node.childNodes().size() == 0 ? node.text() : Text());
            for (const TextView key : {u"note", u"No", u"T", u"k", u"a0", u"a14", u"a79", u"new"})
                add(node.getNamedItem(key).value_or(u"-"));
            seen += std::to_string(node.childNodes().size()) + "\n";
        }
    }
    std::erase(seen, '\r');
    return seen;
}

using Act = std::function<void(XmlDocument&)>;

struct Case {
    const char* Name;
    Act Prepare; // what was done before, with memory enough
    Act Do;
};

void Nothing(XmlDocument& /*document*/) {}

XmlNode At(const XmlDocument& document, TextView path) { return document.selectSingleNode(path); }

// Both kinds of look-up among many children, so that their index is made.
void LookUp(XmlDocument& document)
{
    static_cast<void>(document.selectSingleNode(u"/root/MANY/D", u"No", u"7"));
    static_cast<void>(document.selectNodes(u"/root/MANY/D"));
}

void AppendNew(XmlDocument& document)
{
    const XmlNode child = document.createNode(u"NEW");
    At(document, u"/root/MANY").appendChild(child);
}

void EditMany(XmlDocument& document)
{
    LookUp(document);
    At(document, u"/root/MANY/D").text(LongText);
    const XmlNode third = document.selectSingleNode(u"/root/MANY/D", u"No", u"3");
    third.setNamedItem(u"T", LongText);
    third.setNamedItem(u"new", u"");
    At(document, u"/root/MANY").removeChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"5"));
    third.selectSingleNode(u"R").text(u"edited");
}

const std::vector<Case>& Cases()
{
    static const std::vector<Case> cases = {
        {"Load", Nothing,
         [](XmlDocument& document) { document.loadXML("<root><NEW>" + std::string(LongValue) + "</NEW></root>"); }},
        {"LoadOfUtf16", EditMany,
         [](XmlDocument& document) {
             document.loadXML(u"<root><NEW new='" + Text(LongText).substr(0, 7) + u"'/></root>");
         }},
        {"LoadOfMuch", Nothing, [](XmlDocument& document) { document.loadXML("<root><A/>" + Sample() + "</root>"); }},
        {"LoadOfNoXml", Nothing, [](XmlDocument& document) { document.loadXML(std::string("<root><A>") + LongValue); }},
        {"FindChildren", Nothing, [](XmlDocument& document) { static_cast<void>(At(document, u"/root/MANY/D/R")); }},
        {"FindByKey", Nothing, LookUp},
        {"FindAll", EditMany, LookUp},
        {"ReadEditedAttribute", EditMany,
         [](XmlDocument& document) { static_cast<void>(At(document, u"/root/HUGE").getNamedItem(u"a79")); }},
        {"ReadText", EditMany, [](XmlDocument& document) { static_cast<void>(document.documentElement().text()); }},
        {"ReadBack", EditMany, [](XmlDocument& document) { static_cast<void>(document.xml()); }},
        {"Create", Nothing,
         [](XmlDocument& document) {
             static_cast<void>(document.createNode(u"NEW.with.a.name.that.needs.memory.of.its.own"));
         }},
        {"Append", Nothing, AppendNew},
        {"AppendToIndexed", LookUp, AppendNew},
        {"AppendFromElsewhere", LookUp,
         [](XmlDocument& document) {
             At(document, u"/root/FEW").appendChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"9"));
         }},
        {"AppendOfALook", LookUp,
         [](XmlDocument& document) { At(document, u"/root/MANY").appendChild(At(document, u"/root/FEW/B")); }},
        {"AppendAtTheEndOfItsOwnParent", LookUp,
         [](XmlDocument& document) {
             const XmlNode many = At(document, u"/root/MANY");
             many.appendChild(many.firstChild());
         }},
        {"Remove", LookUp,
         [](XmlDocument& document) {
             At(document, u"/root/MANY").removeChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"9"));
         }},
        {"RemoveAfterOthers", EditMany,
         [](XmlDocument& document) {
             At(document, u"/root/MANY").removeChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"9"));
         }},
        {"ReplaceByNew", EditMany,
         [](XmlDocument& document) {
             const XmlNode child = document.createNode(u"NEW");
             At(document, u"/root/MANY").replaceChild(child, At(document, u"/root/MANY/D"));
         }},
        {"ReplaceByOneOfElsewhere", Nothing,
         [](XmlDocument& document) {
             At(document, u"/root/FEW")
                 .replaceChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"9"), At(document, u"/root/FEW/A"));
         }},
        {"ReplaceByASibling", LookUp,
         [](XmlDocument& document) {
             const XmlNode many = At(document, u"/root/MANY");
             many.replaceChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"9"), many.firstChild());
         }},
        {"WriteText", LookUp, [](XmlDocument& document) { At(document, u"/root/FEW").text(LongText); }},
        {"WriteTextOverIndexed", LookUp,
         [](XmlDocument& document) { At(document, u"/root/MANY").text(LongText, CarriageReturns::Kept); }},
        {"Empty", LookUp, [](XmlDocument& document) { At(document, u"/root/MANY").removeChildren(); }},
        {"SetAttribute", Nothing,
         [](XmlDocument& document) { At(document, u"/root/FEW").setNamedItem(u"note", LongText); }},
        {"AddAttribute", Nothing,
         [](XmlDocument& document) { At(document, u"/root/FEW").setNamedItem(u"new", LongText); }},
        {"SetKeyOfIndexed", LookUp,
         [](XmlDocument& document) { At(document, u"/root/MANY/D").setNamedItem(u"No", LongText); }},
        {"AddManyAttributes", Nothing,
         [](XmlDocument& document) { At(document, u"/root/MORE").setNamedItem(u"new", u"x"); }},
        {"AddPastFewAttributes", [](XmlDocument& document) { At(document, u"/root/MORE").setNamedItem(u"b", u"x"); },
         [](XmlDocument& document) { At(document, u"/root/MORE").setNamedItem(u"new", LongText); }},
        {"SetOneOfVeryManyAttributes", Nothing,
         [](XmlDocument& document) { At(document, u"/root/HUGE").setNamedItem(u"a79", LongText); }},
        {"CloneOfUntouched", LookUp,
         [](XmlDocument& document) { static_cast<void>(At(document, u"/root/FEW").cloneNode()); }},
        {"CloneOfEdited", EditMany,
         [](XmlDocument& document) { static_cast<void>(At(document, u"/root/MANY").cloneNode()); }},
        {"AppendOfAClone", EditMany,
         [](XmlDocument& document) {
             At(document, u"/root/FEW")
                 .appendChild(document.selectSingleNode(u"/root/MANY/D", u"No", u"3").cloneNode());
         }},
    };
    return cases;
}

std::unique_ptr<XmlDocument> Prepared(const Case& test)
{
    auto document = std::make_unique<XmlDocument>();
    EXPECT_TRUE(document->loadXML(Sample()));
    test.Prepare(*document);
    return document;
}

// False when the allocation of that number was never asked for.
bool FailsAt(std::size_t number, FailingMemory::Which which, const Case& test, XmlDocument& document)
{
    FailingMemory memory(number, which);
    try {
        test.Do(document);
    } catch (const std::bad_alloc&) {
        return true;
    }
    return memory.HasFailed(); // something did without
}

class XmlMemory : public testing::TestWithParam<Case> {
protected:
    // A fresh parse of the text sees what the document that went through the failure sees.
    static void ExpectSound(XmlDocument& document)
    {
        XmlDocument fresh;
        const std::string text = document.xmlUtf8();
        ASSERT_EQ(fresh.loadXML(text), !text.empty());
        EXPECT_EQ(Seen(document), Seen(fresh));
        EXPECT_EQ(document.xmlUtf8(), text) << "looking has changed something";
    }

    static void FailEach(FailingMemory::Which which)
    {
        const Case& test = GetParam();
        const std::unique_ptr<XmlDocument> done = Prepared(test);
        const std::string before = done->xmlUtf8();
        test.Do(*done);
        const std::string after = done->xmlUtf8();

        for (std::size_t number = 1;; number += number < 50 ? 1 : 7) {
            SCOPED_TRACE("allocation " + std::to_string(number));
            const std::unique_ptr<XmlDocument> document = Prepared(test);
            if (!FailsAt(number, which, test, *document))
                break;
            ASSERT_THAT(document->xmlUtf8(), testing::AnyOf(before, after));
            ExpectSound(*document);
            if (document->xmlUtf8() == before) {
                test.Do(*document);
                EXPECT_EQ(document->xmlUtf8(), after);
            }
            if (!document->documentElement())
                continue;
            document->documentElement().appendChild(document->createNode(u"NEW"));
            document->documentElement().setNamedItem(u"new", LongText);
            ExpectSound(*document);
            if (HasFailure())
                break;
        }
    }
};

TEST_P(XmlMemory, IsAsItWasOrDoneWhenOneAllocationFails) { FailEach(FailingMemory::Which::Alone); }

TEST_P(XmlMemory, IsAsItWasOrDoneWhenAllFromOneOnFail) { FailEach(FailingMemory::Which::AndAllBehind); }

INSTANTIATE_TEST_SUITE_P(Document, XmlMemory, testing::ValuesIn(Cases()),
                         [](const testing::TestParamInfo<Case>& test) { return std::string(test.param.Name); });

TEST(XmlMemory, MalformedTextLeavesAnEmptyDocument)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(Sample()));
    EXPECT_FALSE(document.loadXML(std::string("<root>")));
    EXPECT_EQ(document.xmlUtf8(), "");
    EXPECT_FALSE(document.documentElement());
}

} // namespace
} // namespace rulemesh
