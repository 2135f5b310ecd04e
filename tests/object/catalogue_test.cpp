#include "object/catalogue.h"

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

const std::string Object =
    "<partn101>\n  <PREC/>\n  <SRCTAB>\n    <CUSTS001><CODE FNo=\"1\" DSCA=\"a &lt; b\" DEP=\"2\"/></CUSTS001>\n"
    "  </SRCTAB>\n  <TARTAB><PARTN101><CODE No=\"1\"/></PARTN101></TARTAB>\n</partn101>\n";

CatalogueTable Table(TextView code, const std::vector<Text>& fields)
{
    CatalogueTable table{.Code = Text(code), .Fields = {}};
    for (const Text& field : fields)
        table.Fields.push_back({.Name = field, .Attributes = {{u"TYPE", u"S"}}});
    return table;
}

TEST(CatalogueOf, ReadsTablesFieldsAndAttributes)
{
    const Catalogue catalogue = CatalogueOf(Object);
    ASSERT_EQ(catalogue.Sources.size(), 1u);
    const CatalogueField& field = catalogue.Sources[0].Fields.at(0);
    EXPECT_EQ(field.Name, u"CODE");
    EXPECT_EQ(field.Attribute(u"DSCA"), u"a < b");
    EXPECT_EQ(field.Attribute(u"DEP"), u"2");
    EXPECT_EQ(field.Attribute(u"LENG"), u"");
    EXPECT_EQ(catalogue.Targets.at(0).Code, u"PARTN101");
}

TEST(CatalogueOf, IsEmptyForWhatHasNone)
{
    EXPECT_EQ(CatalogueOf("<partn101><PREC/></partn101>"), Catalogue{});
    EXPECT_EQ(CatalogueOf("no xml"), Catalogue{});
}

TEST(FindTable, DisregardsCase)
{
    const std::vector<CatalogueTable> tables = {Table(u"CUSTS001", {})};
    EXPECT_EQ(FindTable(tables, u"custs001"), &tables[0]);
    EXPECT_EQ(FindTable(tables, u"custs002"), nullptr);
}

TEST(WithCatalogue, ReplacesTablesAndAddsOthersAndLeavesTheRest)
{
    const Catalogue catalogue{.Sources = {Table(u"CUSTS001", {u"NAME"}), Table(u"CUSTS002", {u"ID"})}, .Targets = {}};
    EXPECT_EQ(WithCatalogue(Object, catalogue),
              "<partn101>\n  <PREC/>\n  <SRCTAB>\n    <CUSTS001><NAME TYPE=\"S\"/></CUSTS001>\n  "
              "<CUSTS002><ID TYPE=\"S\"/></CUSTS002></SRCTAB>\n"
              "  <TARTAB><PARTN101><CODE No=\"1\"/></PARTN101></TARTAB>\n</partn101>\n");
}

TEST(WithCatalogue, NumbersTargetFieldsFromOne)
{
    const std::string object =
        WithCatalogue("<partn101/>", {.Sources = {}, .Targets = {Table(u"PARTN101", {u"A", u"B"})}});
    EXPECT_EQ(
        object,
        "<partn101><TARTAB><PARTN101><A TYPE=\"S\" No=\"1\"/><B TYPE=\"S\" No=\"2\"/></PARTN101></TARTAB></partn101>");
}

TEST(WithCatalogue, LeavesWhatIsNoXmlAsItIs) { EXPECT_EQ(WithCatalogue("no xml", {}), "no xml"); }

} // namespace
} // namespace rulemesh
