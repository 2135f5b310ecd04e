#include "host/settings/settings.h"

#include <gtest/gtest.h>

#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

QString Path(int number) { return QStringLiteral("/objects/%1.xml").arg(number); }

TEST(RecentFiles, PutsTheLastOneInFrontEachOnce)
{
    RecentFiles files;
    for (const int number : {1, 2, 3, 1})
        files.Add(Path(number));
    EXPECT_EQ(files.Paths(), QStringList({Path(1), Path(3), Path(2)}));
    files.Remove(Path(3));
    EXPECT_EQ(files.Paths(), QStringList({Path(1), Path(2)}));
}

TEST(RecentFiles, KeepsTen)
{
    RecentFiles files;
    for (int number = 1; number <= 12; ++number)
        files.Add(Path(number));
    EXPECT_EQ(files.Paths().size(), 10);
    EXPECT_EQ(files.Paths().last(), Path(3));
}

TEST(RecentFiles, NamesTheFolderWhereTwoFilesBearOneName)
{
    const RecentFiles files({QStringLiteral("/a/x.xml"), QStringLiteral("/b/x.xml"), QStringLiteral("/b/y.xml")});
    EXPECT_EQ(files.Captions(),
              QStringList({QStringLiteral("x.xml - /a"), QStringLiteral("x.xml - /b"), QStringLiteral("y.xml")}));
}

TEST(Settings, AreThereAtTheNextStart)
{
    const TemporaryFolder folder;
    const QString file = QString::fromStdString((folder / "settings.ini").native());
    QFont font(QStringLiteral("Serif"), 13);
    {
        Settings settings(file);
        settings.Editor(QStringLiteral(" kate -b "));
        settings.Font(font);
        settings.Highlighting(false);
        settings.Recent(RecentFiles({Path(1), Path(2)}));
        settings.Geometry("geometry");
        settings.Folder(QStringLiteral("/objects"));
    }
    const Settings settings(file);
    EXPECT_EQ(settings.Editor(), QStringLiteral("kate -b"));
    ASSERT_TRUE(settings.Font());
    EXPECT_EQ(settings.Font()->pointSize(), 13);
    EXPECT_FALSE(settings.Highlighting());
    EXPECT_EQ(settings.Recent().Paths(), QStringList({Path(1), Path(2)}));
    EXPECT_EQ(settings.Geometry(), "geometry");
    EXPECT_EQ(settings.Folder(), QStringLiteral("/objects"));
}

TEST(Settings, StartWithHighlightingAndNeitherEditorNorFont)
{
    const TemporaryFolder folder;
    const Settings settings(QString::fromStdString((folder / "settings.ini").native()));
    EXPECT_EQ(settings.Editor(), QString());
    EXPECT_FALSE(settings.Font());
    EXPECT_TRUE(settings.Highlighting());
    EXPECT_TRUE(settings.Recent().Paths().isEmpty());
}

} // namespace
} // namespace rulemesh
