#include "shell/text_notes.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Text Template = u"Field Mapping:\n\n\n\n\n\n\nTechnical Notes:";

class TextNotesTest : public DesignerBench {
protected:
    /// The form as it comes up next; it is left by what the test does to it.
    void WhenTheFormComes(std::function<void(FrmTxtDoc&)> user)
    {
        platform_.FormActions.push_back([user](ModalForm& form) { user(static_cast<FrmTxtDoc&>(form)); });
    }

    [[nodiscard]] std::string Document() const { return control_.DocumentAsItStands(); }
};

TEST_F(TextNotesTest, ANoteThatWasOnlyLoadedCountsAsUnchanged)
{
    Open();
    WhenTheFormComes([](FrmTxtDoc& form) {
        EXPECT_FALSE(form.BoolTextChanged);
        form.UserCloses();
    });
    views_.CmdPreDoc.UserClicks();
    EXPECT_THAT(platform_.Messages, IsEmpty());
    EXPECT_THAT(platform_.Forms, ElementsAre(u"Precondition Text"));
    EXPECT_EQ(views_.Tree.Focused(), &views_.txtPreCondition);
}

TEST_F(TextNotesTest, EntitiesAndLineEndsAreDecodedAlsoByCancel)
{
    Open(R"(<tgtab001><PREC TEXT="a &amp;lt; b&#10;c">x</PREC></tgtab001>)");
    WhenTheFormComes([](FrmTxtDoc& form) { EXPECT_EQ(form.TxtDoc.Text(), u"a < b\r\nc"); });
    views_.CmdPreDoc.UserClicks();
    EXPECT_THAT(Document(), HasSubstr(R"(<PREC TEXT="a &lt; b&#13;&#10;c">)"));
}

TEST_F(TextNotesTest, ANoteOfPlainLineFeedsComesBackWithCarriageReturnsAfterCancel)
{
    Open("<tgtab001><PREC TEXT='a&#10;b'>x</PREC></tgtab001>");
    WhenTheFormComes([](FrmTxtDoc& form) { form.CmdCancel.UserClicks(); });
    views_.CmdPreDoc.UserClicks();
    EXPECT_THAT(Document(), HasSubstr("<PREC TEXT=\"a&#13;&#10;b\">x</PREC>"));
}

TEST_F(TextNotesTest, TheQuerysNoteIsNamedByTheTargetTable)
{
    Open();
    WhenTheFormComes([](FrmTxtDoc& form) {
        form.TxtDoc.UserTypes(u"note");
        form.CmdOk.UserClicks();
    });
    views_.CmdMQDoc.UserClicks();
    EXPECT_THAT(platform_.Forms, ElementsAre(u"Text for Migrate:tgtab001"));
    EXPECT_THAT(Document(), HasSubstr(R"(<QUERY ST="srtab001" TEXT="note">)"));
}

TEST_F(TextNotesTest, AnUntouchedTemplateAsksWhenItIsClosedFromItsFrame)
{
    OpenRules();
    platform_.Buttons = {MessageButton::No, MessageButton::Yes};
    WhenTheFormComes([](FrmTxtDoc& form) { form.UserCloses(); });
    views_.CmdDumpText.UserClicks();
    EXPECT_EQ(TextsOf(platform_.Messages), std::vector<Text>{u"Save Changes Done ?"});
    EXPECT_EQ(Document(), SmallObject);
    EXPECT_THAT(platform_.Forms, ElementsAre(u"Text For Field : 'a'   Dump:1"));

    WhenTheFormComes([](FrmTxtDoc& form) { form.UserCloses(); });
    views_.CmdDumpText.UserClicks();
    EXPECT_THAT(Document(), HasSubstr("<A TEXT=\"Field Mapping:&#13;&#10;&#13;&#10;"));
}

TEST_F(TextNotesTest, AnUntouchedTemplateIsStoredByOkAndNotByCancel)
{
    OpenRules();
    WhenTheFormComes([](FrmTxtDoc& form) { form.CmdCancel.UserClicks(); });
    views_.CmdDumpText.UserClicks();
    EXPECT_EQ(Document(), SmallObject);
    WhenTheFormComes([](FrmTxtDoc& form) {
        EXPECT_EQ(form.TxtDoc.Text(), ReplaceAll(Template, u"\n", u"\r\n"));
        form.CmdOk.UserClicks();
    });
    views_.CmdDumpText.UserClicks();
    EXPECT_THAT(Document(), HasSubstr("&#13;&#10;Technical Notes:\" TYPE=\"0\">a</A>"));
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(TextNotesTest, TheTemplateTypedWithPlainLineFeedsEndsEmpty)
{
    OpenRules();
    WhenTheFormComes([](FrmTxtDoc& form) {
        form.TxtDoc.UserTypes(Template);
        form.CmdOk.UserClicks();
    });
    views_.CmdDumpText.UserClicks();
    EXPECT_EQ(Document(), SmallObject);
}

TEST_F(TextNotesTest, ARuleThatStandsOnlyInTheGridHasNoNote)
{
    OpenRules();
    views_.RulesGrid.UserClicksCell(1, 1, Grid::Clicks::Single);
    control_.FieldMapping(u"typed");
    views_.CmdDumpText.UserClicks();
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text, u"You Can Maintain Text, only to fields having a rule ");
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::Notice);
    EXPECT_EQ(platform_.Messages[0].Title, u"");
    EXPECT_THAT(platform_.Forms, IsEmpty());
}

TEST_F(TextNotesTest, WithoutADumpOrAnElementTheButtonDoesNothing)
{
    const std::string object =
        R"(<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001 dump 3</PREC><SRCTAB><SRTAB001/></SRCTAB>)"
        R"(</tgtab001>)";
    OpenRules(object);
    control_.MappingObjectXML(object); // the views still show dump 3
    views_.CmdDumpText.UserClicks();   // a dump without an element
    views_.CmbDump.Clear();
    views_.CmdDumpText.UserClicks(); // no dump at all
    EXPECT_THAT(platform_.Forms, IsEmpty());
}

TEST_F(TextNotesTest, AKeyWithoutAFieldHasNoNote)
{
    OpenRules();
    views_.RulesGrid.TextMatrix(0, 0, u"tgtab001.");
    views_.CmdDumpText.UserClicks();
    EXPECT_THAT(platform_.Forms, IsEmpty());
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(TextNotesTest, WithoutAQueryOrAPreconditionTheButtonsDoNothing)
{
    Open(R"(<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001</PREC></tgtab001>)");
    views_.CmdMQDoc.UserClicks();
    control_.MappingObjectXML(std::string("<tgtab001/>"));
    control_.ShowControl();
    views_.CmdMQDoc.UserClicks();
    views_.CmdPreDoc.UserClicks();
    EXPECT_THAT(platform_.Forms, IsEmpty());
}

TEST_F(TextNotesTest, ATextNumberIsADecimalText)
{
    Open();
    control_.SetTextNumber(u"P", -7, u"", u"");
    control_.SetTextNumber(u"M", 2147483647, u"srtab001", u"");
    control_.SetTextNumber(u"D", 5, u"2", u"c(1)");
    EXPECT_THAT(Document(), HasSubstr(R"(<PREC TEXT="-7">)"));
    EXPECT_THAT(Document(), HasSubstr(R"(<QUERY ST="srtab001" TEXT="2147483647">)"));
    EXPECT_THAT(Document(), HasSubstr(R"(<C__1 TEXT="5"/></DUMP>)"));
}

TEST_F(TextNotesTest, ATextNumberOfADumpPastSixteenBitsIsAnOverflow)
{
    Open();
    EXPECT_EQ(FailureOf([&] { control_.SetTextNumber(u"D", 5, u"40000", u"a"); }), FailureCode::Overflow);
    EXPECT_EQ(Document(), SmallObject);
}

} // namespace
} // namespace rulemesh
