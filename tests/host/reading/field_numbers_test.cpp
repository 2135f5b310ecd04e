#include "host/reading/field_numbers.h"

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

QStringList FaultsIn(const std::string& fields)
{
    return FaultyFieldNumbers("<partn101><PREC/><TARTAB><PARTN101>" + fields + "</PARTN101></TARTAB></partn101>");
}

QString Line(const char* faults) { return QStringLiteral("Table PARTN101: %1.").arg(QString::fromUtf8(faults)); }

TEST(FaultyFieldNumbers, AreNoneWhereEachFieldBearsItsPlace)
{
    EXPECT_EQ(FaultsIn(""), QStringList());
    EXPECT_EQ(FaultsIn(R"(<A No="1"/><!-- no field --><B No="02"/> <C No="3.0"/>)"), QStringList());
}

TEST(FaultyFieldNumbers, NameGapRepeatAndWhatIsNoNumber)
{
    EXPECT_EQ(FaultsIn(R"(<A No="1"/><B No="3"/>)"), QStringList({Line("B has No=\"3\" in place 2")}));
    EXPECT_EQ(FaultsIn(R"(<A No="1"/><B No="1"/>)"), QStringList({Line("B has No=\"1\" in place 2")}));
    EXPECT_EQ(FaultsIn(R"(<A No="2"/><B No="1"/>)"),
              QStringList({Line("A has No=\"2\" in place 1, B has No=\"1\" in place 2")}));
    EXPECT_EQ(FaultsIn(R"(<A No="one"/>)"), QStringList({Line("A has No=\"one\" in place 1")}));
    EXPECT_EQ(FaultsIn(R"(<A No=""/>)"), QStringList({Line("A has No=\"\" in place 1")}));
    EXPECT_EQ(FaultsIn("<A/>"), QStringList({Line("A has no No in place 1")}));
    EXPECT_EQ(FaultsIn(R"(<A No="0"/>)"), QStringList({Line("A has No=\"0\" in place 1")}));
    EXPECT_EQ(FaultsIn(R"(<A No="-1"/>)"), QStringList({Line("A has No=\"-1\" in place 1")}));
    EXPECT_EQ(FaultsIn(R"(<A No="1e9"/>)"), QStringList({Line("A has No=\"1e9\" in place 1")}));
}

TEST(FaultyFieldNumbers, NameTheFirstFieldsOfALongTable)
{
    EXPECT_EQ(FaultsIn(R"(<A No="0"/><B No="1"/><C No="2"/><D No="3"/><E No="4"/><F No="5"/><G No="6"/>)"),
              QStringList({Line("A has No=\"0\" in place 1, B has No=\"1\" in place 2, C has No=\"2\" in place 3, "
                                "D has No=\"3\" in place 4, E has No=\"4\" in place 5, and 2 more")}));
}

TEST(FaultyFieldNumbers, GoByTableAndOnlyByTargetTables)
{
    const QStringList lines =
        FaultyFieldNumbers("<o><SRCTAB><SRTAB001><A No='7'/></SRTAB001></SRCTAB><TARTAB><T1><A/></T1>"
                           "<T2><A No='1'/></T2></TARTAB><TARTAB><T3><B/></T3></TARTAB></o>");
    EXPECT_EQ(lines, QStringList({QStringLiteral("Table T1: A has no No in place 1."),
                                  QStringLiteral("Table T3: B has no No in place 1.")}));
    EXPECT_EQ(FaultyFieldNumbers("no xml"), QStringList());
}

} // namespace
} // namespace rulemesh
