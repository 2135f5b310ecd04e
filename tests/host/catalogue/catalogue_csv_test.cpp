#include "host/catalogue/catalogue_csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/catalogue/csv_reader.h"
#include "host/files/host_error.h"

namespace rulemesh {
namespace {

using ::testing::ElementsAre;
using Attributes = std::vector<std::pair<Text, Text>>;

std::vector<QStringList> Cells(const QString& text)
{
    std::vector<QStringList> cells;
    for (const CsvRow& row : ReadCsv(text))
        cells.push_back(row.Cells);
    return cells;
}

QStringList Complaints(const QByteArray& csv)
{
    try {
        (void)ReadCatalogueCsv(csv);
    } catch (const HostError& error) {
        return error.Text().split(u'\n');
    }
    return {};
}

TEST(ReadCsv, TakesTheSeparatorOfTheFirstRow)
{
    EXPECT_THAT(Cells(QStringLiteral("a;b\n1,5;2\n")), ElementsAre(QStringList{"a", "b"}, QStringList{"1,5", "2"}));
    EXPECT_THAT(Cells(QStringLiteral("a,b\r\n1;5,2")), ElementsAre(QStringList{"a", "b"}, QStringList{"1;5", "2"}));
    EXPECT_THAT(Cells(QStringLiteral("\"a;b;c\",d")), ElementsAre(QStringList{"a;b;c", "d"}));
}

TEST(ReadCsv, ReadsQuotedCells)
{
    EXPECT_THAT(Cells(QStringLiteral("\"one, \"\"two\"\"\",\"\"\n")), ElementsAre(QStringList{"one, \"two\"", ""}));
    EXPECT_THAT(Cells(QStringLiteral("\"one\nline\",x")), ElementsAre(QStringList{"one\nline", "x"}));
}

TEST(ReadCsv, CountsLinesWhereRowsBegin)
{
    const auto rows = ReadCsv(QStringLiteral("a,b\n\n\"one\ntwo\",c\nd,e"));
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1].Line, 3);
    EXPECT_EQ(rows[2].Line, 5);
}

TEST(ReadCsv, TellsTheLineOfAQuoteThatIsNeverClosed)
{
    EXPECT_THAT(
        Complaints("side,table,field\nsource,custs001,\"name\n\n"),
        ElementsAre(::testing::Truly([](const QString& s) { return s.startsWith(QStringLiteral("Line 2:")); })));
}

TEST(ReadCatalogueCsv, ReadsTablesOfBothSides)
{
    const Catalogue catalogue = ReadCatalogueCsv("side,table,field,TYPE,LENG,MAN\n"
                                                 "source,custs001,code,L,,Y\n"
                                                 "Target,partn101,price(1),s,20,\n");
    ASSERT_EQ(catalogue.Sources.size(), 1u);
    EXPECT_EQ(catalogue.Sources[0].Code, u"CUSTS001");
    EXPECT_EQ(catalogue.Sources[0].Fields[0].Name, u"CODE");
    EXPECT_THAT(catalogue.Sources[0].Fields[0].Attributes,
                ElementsAre(std::pair(Text(u"MAN"), Text(u"Y")), std::pair(Text(u"TYPE"), Text(u"L")),
                            std::pair(Text(u"FNo"), Text(u"1"))));
    ASSERT_EQ(catalogue.Targets.size(), 1u);
    EXPECT_EQ(catalogue.Targets[0].Fields[0].Name, u"PRICE__1");
    EXPECT_EQ(catalogue.Targets[0].Fields[0].Attribute(u"TYPE"), u"S");
    EXPECT_EQ(catalogue.Targets[0].Fields[0].Attribute(u"No"), u"1");
}

TEST(ReadCatalogueCsv, TakesColumnsInAnyOrderAndABom)
{
    const Catalogue catalogue = ReadCatalogueCsv("\xEF\xBB\xBF"
                                                 "DSCA;Field;TABLE;Side\n\"Name; \xC3\xA4\";name;custs001;source\n");
    EXPECT_EQ(catalogue.Sources.at(0).Fields.at(0).Attribute(u"DSCA"), u"Name; \u00e4");
}

TEST(ReadCatalogueCsv, OrdersTargetFieldsByNoAndNumbersThemWithoutGaps)
{
    const Catalogue catalogue = ReadCatalogueCsv("side,table,field,No\n"
                                                 "target,partn101,c,30\ntarget,partn101,a,10\ntarget,partn101,b,20\n");
    std::vector<std::pair<Text, Text>> fields;
    for (const CatalogueField& field : catalogue.Targets.at(0).Fields)
        fields.emplace_back(field.Name, field.Attribute(u"No"));
    EXPECT_EQ(fields, (Attributes{{u"A", u"1"}, {u"B", u"2"}, {u"C", u"3"}}));
}

TEST(ReadCatalogueCsv, TellsEveryMistakeWithItsLine)
{
    const QStringList told = Complaints("side,table,field,TYPE,LENG,No\n"
                                        "sauce,custs001,a,,,\n"
                                        "source,cust0001,a,,,\n"
                                        "source,custs001,1a,,,\n"
                                        "source,custs001,a,X,,\n"
                                        "source,custs001,b,S,twenty,\n"
                                        "source,custs001,A,,,\n"
                                        "source,custs001,c,,,,,\n");
    const std::vector<std::pair<QString, QString>> expected = {
        {"Line 2:", "\"sauce\""},        {"Line 3:", "\"cust0001\""}, {"Line 4:", "\"1a\""},
        {"Line 5:", "BILFDSMEPTKU"},     {"Line 6:", "\"twenty\""},   {"Line 8:", "8 cells"},
        {"Line 7:", "in line 5 already"}};
    ASSERT_EQ(told.size(), static_cast<qsizetype>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_TRUE(told[static_cast<qsizetype>(i)].startsWith(expected[i].first))
            << qPrintable(told[static_cast<qsizetype>(i)]);
        EXPECT_TRUE(told[static_cast<qsizetype>(i)].contains(expected[i].second))
            << qPrintable(told[static_cast<qsizetype>(i)]);
    }
}

TEST(ReadCatalogueCsv, RefusesNumbersThatAreDoubleOrPartial)
{
    EXPECT_TRUE(Complaints("side,table,field,No\ntarget,partn101,a,1\ntarget,partn101,b,1\n")
                    .first()
                    .startsWith(QStringLiteral("Line 3:")));
    EXPECT_TRUE(Complaints("side,table,field,No\ntarget,partn101,a,1\ntarget,partn101,b,\n")
                    .first()
                    .contains(QStringLiteral("for all of them or for none")));
}

TEST(ReadCatalogueCsv, TellsWhatTheHeaderLacks)
{
    EXPECT_TRUE(Complaints("").first().contains(QStringLiteral("empty")));
    EXPECT_TRUE(Complaints("side,table\n").first().contains(QStringLiteral("\"field\" is missing")));
    EXPECT_TRUE(Complaints("side,table,field,colour\n").first().contains(QStringLiteral("\"colour\"")));
    EXPECT_TRUE(Complaints("side,table,field,side\n").first().contains(QStringLiteral("twice")));
    EXPECT_TRUE(Complaints("side,table,field\n").first().contains(QStringLiteral("no field")));
    EXPECT_TRUE(Complaints("side,table,field\nsource,custs001,\xE4").first().contains(QStringLiteral("UTF-8")));
}

} // namespace
} // namespace rulemesh
