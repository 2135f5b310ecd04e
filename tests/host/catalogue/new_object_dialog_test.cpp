#include "host/catalogue/new_object_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>

#include "host/host_desk.h"

namespace rulemesh {
namespace {

using NewObjectDialogTest = HostDesk;

TEST_F(NewObjectDialogTest, MakesAnObjectFromTheCatalogueOfAnother)
{
    NewObjectDialog dialog(File(""), nullptr);
    dialog.UseCatalogue(File("object.xml"));
    EXPECT_EQ(dialog.Target().currentText(), QStringLiteral("partn101"));
    EXPECT_FALSE(dialog.Several().isEnabled()); // there is but one
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    window->Current().OpenUnsaved({{}, dialog.Object()});
    EXPECT_EQ(Designer().TargetTable(), QStringLiteral("partn101"));
    EXPECT_TRUE(window->Current().SaveTo(File("new.xml")));
    EXPECT_NE(OnDisk("new.xml").find("<ORDRS001>"), std::string::npos);
}

TEST_F(NewObjectDialogTest, MakesAnObjectOfSeveralTargetTables)
{
    Put(folder / "tables.csv", "side,table,field\ntarget,partn101,a\ntarget,partn102,a\ntarget,partn103,a\n");
    NewObjectDialog dialog(File(""), nullptr);
    dialog.UseCatalogue(File("tables.csv"));
    dialog.Target().setCurrentText(QStringLiteral("partn102"));
    dialog.Several().setChecked(true);
    dialog.Choice().item(0)->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(dialog.Choice().item(1)->flags().testFlag(Qt::ItemIsUserCheckable)); // its own table stays
    dialog.accept();
    EXPECT_TRUE(dialog.Object().startsWith("<partn102>"));
    EXPECT_TRUE(dialog.Object().contains("<MSCRIPT>\n    <PARTN102/>\n    <PARTN103/>\n  </MSCRIPT>"));
}

TEST_F(NewObjectDialogTest, TellsWhatIsWrongWithACatalogue)
{
    NewObjectDialog dialog(File(""), nullptr);
    Put(folder / "wrong.csv", "side,table,field\nmiddle,partn101,a\n");
    dialog.UseCatalogue(File("wrong.csv"));
    EXPECT_TRUE(dialog.Complaint().text().startsWith(QStringLiteral("Line 2:")));
    Put(folder / "sources.csv", "side,table,field\nsource,custs001,a\n");
    dialog.UseCatalogue(File("sources.csv"));
    EXPECT_TRUE(dialog.Complaint().text().contains(QStringLiteral("no target table")));
    dialog.UseCatalogue(File("missing.xml"));
    EXPECT_TRUE(dialog.Complaint().text().contains(QStringLiteral("missing.xml")));
    dialog.accept();
    EXPECT_NE(dialog.result(), QDialog::Accepted);
}

} // namespace
} // namespace rulemesh
