#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>

namespace rulemesh {

namespace {

// The whole report of some random actions on an object; it ends with what was done and found.
QString Report(const char* object, int actions)
{
    static int count = 1;
    static char name[] = "monkey_test";
    static char* words[] = {name, nullptr};
    const QCoreApplication application(count, words);
    QProcess monkey;
    monkey.setProcessChannelMode(QProcess::MergedChannels);
    monkey.start(QStringLiteral(RULEMESH_MONKEY),
                 {QStringLiteral("--seed"), QStringLiteral("1"), QStringLiteral("--actions"), QString::number(actions),
                  QString::fromUtf8(object)});
    monkey.waitForFinished(-1);
    return QString::fromUtf8(monkey.readAll());
}

} // namespace

TEST(Monkey, FindsNothingInTheSampleOfOneTargetTable)
{
    EXPECT_EQ(Report(RULEMESH_SAMPLES "/northwind.xml", 1500).toStdString(), "1500 actions, 0 findings\n");
}

TEST(Monkey, FindsNothingInTheSampleOfManyTargetTables)
{
    EXPECT_EQ(Report(RULEMESH_SAMPLES "/chinook.xml", 1500).toStdString(), "1500 actions, 0 findings\n");
}

TEST(Monkey, FindsNothingInAnObjectOfThousandsOfFields)
{
    EXPECT_EQ(Report("wide", 500).toStdString(), "500 actions, 0 findings\n");
}

} // namespace rulemesh
