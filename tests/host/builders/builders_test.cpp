#include "host/builders/builders.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>

#include "base/utf8.h"
#include "desktop/view_surface.h"
#include "host/builders/function_builder.h"
#include "host/builders/function_names.h"
#include "host/builders/script_builder.h"
#include "host/builders/source_tables_builder.h"
#include "host/builders/table_tree.h"
#include "host/host_desk.h"

namespace rulemesh {
namespace {

class BuildersTest : public HostDesk {
protected:
    BuildersTest() { window->Current().Open(File("object.xml")); }

    // The user clicks a button of the designer; a builder comes up, and `fills` does what the user does in it.
    template <typename Builder>
    bool UseBuilder(Button& button, std::function<void(Builder&)> fills, bool accepts = true)
    {
        ModalAnswer answer([&](QWidget& modal) {
            auto& builder = dynamic_cast<Builder&>(modal);
            fills(builder);
            accepts ? builder.accept() : builder.reject();
        });
        Designer().Surface().Act([&] { button.UserClicks(); });
        const bool asked = WaitFor([&] { return answer.WasAsked() && QApplication::activeModalWidget() == nullptr; });
        QApplication::processEvents();
        return asked;
    }

    void ShowRules()
    {
        Designer().Surface().Act([this] { Views().MainTab.UserClicksTab(1); });
    }
    void ClickCell(int row, int col)
    {
        Designer().Surface().Act([=, this] { Views().RulesGrid.UserClicksCell(row, col, Grid::Clicks::Single); });
    }
};

TEST_F(BuildersTest, AddTheTickedSourceTables)
{
    ASSERT_TRUE(UseBuilder<SourceTablesBuilder>(Views().CmdSelectSource, [](SourceTablesBuilder& builder) {
        builder.List().topLevelItem(1)->setCheckState(0, Qt::Checked);
    }));
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001,ordrs001"));
    EXPECT_EQ(Views().lstSourceTables.Count(), 2);
}

TEST_F(BuildersTest, ChangeNothingWhenTheyAreCancelled)
{
    ASSERT_TRUE(UseBuilder<SourceTablesBuilder>(
        Views().CmdSelectSource,
        [](SourceTablesBuilder& builder) { builder.List().topLevelItem(1)->setCheckState(0, Qt::Checked); }, false));
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001"));
    ASSERT_TRUE(UseBuilder<ScriptBuilder>(Views().CmdBuildPre, [](ScriptBuilder&) {}));
    EXPECT_FALSE(window->Current().Object()->HasChanges());
}

TEST_F(BuildersTest, PutAMigrateStatementIntoThePrecondition)
{
    ASSERT_TRUE(UseBuilder<ScriptBuilder>(Views().CmdBuildPre, [](ScriptBuilder& builder) {
        QTreeWidget& tree = *builder.Tables().findChild<QTreeWidget*>();
        tree.setCurrentItem(tree.topLevelItem(1));
        builder.Comment().setText(QStringLiteral("orders"));
        builder.InsertMigrate();
    }));
    EXPECT_EQ(Views().txtPreCondition.Text(), u"migrate custs001 | customers\r\nmigrate ordrs001 | orders\r\n");
    EXPECT_EQ(Views().lstMigrateSource.TextAt(3, 0), u"migrate ordrs001");
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001,ordrs001"));
    EXPECT_TRUE(Views().MainTab.TabEnabled(1));
}

TEST_F(BuildersTest, PutTheNextFreeDumpIntoTheMainQuery)
{
    ASSERT_TRUE(UseBuilder<ScriptBuilder>(Views().cmdBuildMQ, [](ScriptBuilder& builder) {
        EXPECT_EQ(builder.DumpNumber().value(), 2);
        builder.InsertDump();
        EXPECT_EQ(builder.DumpNumber().value(), 3);
    }));
    EXPECT_EQ(Views().txtMainQuery.Text(), u"dump 1 | all\r\ndump 2\r\n");
    EXPECT_EQ(Designer().Control().State().IntDumpNumbers, (std::vector<std::int16_t>{1, 2}));
}

TEST_F(BuildersTest, PutARuleIntoTheCurrentCell)
{
    ShowRules();
    ClickCell(1, 1);
    ASSERT_TRUE(UseBuilder<FunctionBuilder>(Views().CmdFuncBuild, [](FunctionBuilder& builder) {
        builder.InsertCall(QStringLiteral("upper"));
        QTreeWidget& tree = *builder.Tables().findChild<QTreeWidget*>();
        tree.setCurrentItem(tree.topLevelItem(0)->child(1));
        emit builder.Tables().Chosen(builder.Tables().Picked());
    }));
    EXPECT_EQ(Views().RulesGrid.TextMatrix(1, 1), u"upper(custs001.name)");
    EXPECT_TRUE(window->Current().Save());
    EXPECT_NE(OnDisk().find("<NAME TEXT=\"\" TYPE=\"0\">upper(custs001.name)</NAME>"), std::string::npos);
}

TEST_F(BuildersTest, OfferARuleOnlyWhileItsColumnIsCurrent)
{
    const Button& button = Views().CmdFuncBuild;
    EXPECT_TRUE(button.Visible());
    ShowRules();
    ClickCell(0, 0);
    EXPECT_FALSE(button.Enabled());
    ClickCell(0, 1);
    EXPECT_TRUE(button.Enabled());
    window->resize(1100, 650); // a layout pass makes the key's column current
    QApplication::processEvents();
    EXPECT_EQ(Views().RulesGrid.Col(), 0);
    EXPECT_FALSE(button.Enabled());
}

TEST_F(BuildersTest, OfferARuleAtAPlaceThatNoOtherViewTakes)
{
    ShowRules();
    for (const int width : {660, 700, 780, 1000, 1400}) {
        window->resize(width, 650);
        QApplication::processEvents();
        const View& button = Views().CmdFuncBuild;
        EXPECT_LE(button.Right(), Views().lstSourceFields.Right()) << width;
        for (const View* view : Views().Tree.Views()) {
            const bool apart = view->Left() >= button.Right() || view->Right() <= button.Left() ||
                               view->Top() >= button.Bottom() || view->Bottom() <= button.Top();
            if (view != &button && view->Parent() == button.Parent() && view->Visible()) {
                EXPECT_TRUE(apart) << ToUtf8(view->Name()) << " at " << width;
            }
        }
    }
}

TEST_F(BuildersTest, KeepListedSourceTablesTicked)
{
    SourceTablesBuilder form(QStringLiteral("custs001"), CatalogueOf(SmallObject).Sources, nullptr);
    const QTreeWidgetItem* listed = form.List().topLevelItem(0);
    EXPECT_EQ(listed->checkState(0), Qt::Checked);
    EXPECT_FALSE(listed->flags().testFlag(Qt::ItemIsEnabled));
    EXPECT_TRUE(form.NewlyTicked().isEmpty());
    form.Filter().setText(QStringLiteral("ordrs"));
    EXPECT_TRUE(listed->isHidden());
    EXPECT_FALSE(form.List().topLevelItem(1)->isHidden());
}

TEST(SourceTablesWith, AddsBehindWhatIsListed)
{
    EXPECT_EQ(SourceTablesWith({}, {QStringLiteral("a"), QStringLiteral("b")}), QStringLiteral("a,b"));
    EXPECT_EQ(SourceTablesWith(QStringLiteral("x"), {QStringLiteral("a")}), QStringLiteral("x,a"));
    EXPECT_EQ(SourceTablesWith(QStringLiteral("x"), {}), QStringLiteral("x"));
}

TEST(FunctionNamesIn, AreTheWordsInFrontOfBrackets)
{
    EXPECT_EQ(FunctionNamesIn(QStringLiteral("Upper(trim(custs001.price(1))) + x | old(1)\nupper(b) if (c)")),
              QStringList({QStringLiteral("trim"), QStringLiteral("Upper")}));
}

TEST(FunctionNamesOf, LooksIntoScriptsAndRules)
{
    EXPECT_EQ(FunctionNamesOf("<partn101><PREC>today()</PREC><DUMP No='1'><A>trim(x)</A></DUMP></partn101>"),
              QStringList({QStringLiteral("default"), QStringLiteral("today"), QStringLiteral("trim")}));
}

} // namespace
} // namespace rulemesh
