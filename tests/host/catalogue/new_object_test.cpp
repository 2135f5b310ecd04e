#include "host/catalogue/new_object.h"

#include <gtest/gtest.h>

#include "host/files/host_error.h"
#include "host/files/object_file.h"

namespace rulemesh {
namespace {

CatalogueTable Table(TextView code, const Text& value = u"")
{
    return {.Code = Text(code),
            .Fields = {{.Name = u"A", .Attributes = {{u"DSCA", value}}}, {.Name = u"B", .Attributes = {}}}};
}

NewObjectPlan Plan()
{
    return {.Target = u"partn101",
            .Tables = {.Sources = {Table(u"CUSTS001")}, .Targets = {Table(u"PARTN101"), Table(u"PARTN102")}},
            .TargetChoice = {}};
}

QString Complaint(const NewObjectPlan& plan)
{
    try {
        (void)MakeNewObject(plan);
    } catch (const HostError& error) {
        return error.Text();
    }
    return {};
}

TEST(MakeNewObject, WritesTheWholeObject)
{
    EXPECT_EQ(MakeNewObject(Plan()), "<partn101>\n"
                                     "  <SRCTBL/>\n"
                                     "  <PREC TEXT=\"\"/>\n"
                                     "  <SRCTAB>\n"
                                     "    <CUSTS001>\n"
                                     "      <A DSCA=\"\"/>\n"
                                     "      <B/>\n"
                                     "    </CUSTS001>\n"
                                     "  </SRCTAB>\n"
                                     "  <TARTAB>\n"
                                     "    <PARTN101>\n"
                                     "      <A DSCA=\"\" No=\"1\"/>\n"
                                     "      <B No=\"2\"/>\n"
                                     "    </PARTN101>\n"
                                     "    <PARTN102>\n"
                                     "      <A DSCA=\"\" No=\"1\"/>\n"
                                     "      <B No=\"2\"/>\n"
                                     "    </PARTN102>\n"
                                     "  </TARTAB>\n"
                                     "</partn101>\n");
}

TEST(MakeNewObject, ListsTheTargetTablesToChooseFromInTheirOrder)
{
    NewObjectPlan plan = Plan();
    plan.TargetChoice = {u"partn102", u"partn101"};
    EXPECT_TRUE(MakeNewObject(plan).contains("  <MSCRIPT>\n    <PARTN102/>\n    <PARTN101/>\n  </MSCRIPT>\n"));
}

TEST(MakeNewObject, MakesAnObjectThatOpensWhateverTheDescriptions)
{
    NewObjectPlan plan = Plan();
    plan.Tables.Sources = {Table(u"CUSTS001", u"\u0001 \xD800 <\"&'\n\t> \U0001F600")};
    const QByteArray object = MakeNewObject(plan);
    EXPECT_NO_THROW(CheckObject(ParseObjectBytes(object)));
    EXPECT_EQ(CatalogueOf(object.toStdString()).Sources[0].Fields[0].Attribute(u"DSCA"),
              u"\uFFFD \uFFFD <\"&'\n\t> \U0001F600");
}

TEST(MakeNewObject, TellsWhatItCanNotMake)
{
    NewObjectPlan plan = Plan();
    plan.Target = u"partner1";
    EXPECT_TRUE(Complaint(plan).contains(QStringLiteral("\"partner1\" is no table code")));
    plan.Target = u"partn103";
    EXPECT_TRUE(Complaint(plan).contains(QStringLiteral("PARTN101, PARTN102")));
    plan = Plan();
    plan.TargetChoice = {u"partn101", u"other101"};
    EXPECT_TRUE(Complaint(plan).contains(QStringLiteral("other101")));
}

} // namespace
} // namespace rulemesh
