#include "commands/csv_writer.h"

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

TEST(CsvRecord, JoinsCellsByCommas) { EXPECT_EQ(CsvRecord({"a", "", "b c"}), "a,,b c\r\n"); }

TEST(CsvRecord, QuotesWhatWouldEndACell)
{
    EXPECT_EQ(CsvRecord({"a,b", "say \"x\"", "two\r\nlines"}), "\"a,b\",\"say \"\"x\"\"\",\"two\r\nlines\"\r\n");
}

TEST(CsvRecord, GuardsWhatASpreadsheetWouldCompute)
{
    for (const std::string cell : {"=1", "+1", "-1", "@x", "\tx", "'x", "'"})
        EXPECT_EQ(CsvRecord({cell}), "'" + cell + "\r\n");
    EXPECT_EQ(CsvRecord({"\rx"}), "\"'\rx\"\r\n");
    EXPECT_EQ(CsvRecord({"a=1"}), "a=1\r\n");
}

TEST(CsvRecord, GuardIsTakenOffAgain)
{
    EXPECT_EQ(WithoutGuard("'=1"), "=1");
    EXPECT_EQ(WithoutGuard("''x"), "'x");
    EXPECT_EQ(WithoutGuard("x'"), "x'");
    EXPECT_EQ(WithoutGuard(""), "");
}

} // namespace
} // namespace rulemesh
