#include "host/window/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>

#include "desktop/view_surface.h"
#include "host/host_desk.h"

namespace rulemesh {
namespace {

using MainWindowTest = HostDesk;

constexpr TextView Typed = u"migrate custs001 | customers of today\r\n";

std::string With(std::string text, const std::string& old, const std::string& replacement)
{
    return text.replace(text.find(old), old.size(), replacement);
}

TEST_F(MainWindowTest, ShowsAnObjectThatWasOpenedWithoutChanges)
{
    window->Current().Open(File("object.xml"));
    ASSERT_NE(window->Current().Object(), nullptr);
    EXPECT_EQ(Views().txtPreCondition.Text(), u"migrate custs001 | customers");
    EXPECT_FALSE(window->Current().Object()->HasChanges());
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("object.xml")));
    EXPECT_TRUE(Action(QStringLiteral("&Save"))->isEnabled());
}

TEST_F(MainWindowTest, SavesAnEditWithWhatStoodBeforeTheRoot)
{
    window->Current().Open(File("object.xml"));
    Views().txtPreCondition.UserTypes(Text(Typed));
    EXPECT_TRUE(window->Current().Object()->HasChanges());
    EXPECT_TRUE(window->Current().Save());
    EXPECT_FALSE(window->Current().Object()->HasChanges());
    EXPECT_EQ(OnDisk(), Lead + With(SmallObject, "customers\n", "customers of today\n"));
}

TEST_F(MainWindowTest, MarksTheTitleWhenSomethingWasTyped)
{
    window->Current().Open(File("object.xml"));
    EXPECT_FALSE(window->isWindowModified());
    Designer().PreCondition(QString::fromUtf16(Typed.data(), static_cast<qsizetype>(Typed.size())));
    EXPECT_TRUE(WaitFor([this] { return window->isWindowModified(); }));
}

TEST_F(MainWindowTest, TakesAChangeBackByItsEditMenu)
{
    const auto entry = [this](const QString& beginning) {
        QAction* found = nullptr;
        for (QAction* action : window->findChildren<QAction*>()) {
            if (action->text().startsWith(beginning))
                found = action;
        }
        return found;
    };
    window->Current().Open(File("object.xml"));
    const Text before = Views().txtPreCondition.Text();
    EXPECT_FALSE(entry(QStringLiteral("&Undo"))->isEnabled());
    Designer().PreCondition(QString::fromUtf16(Typed.data(), static_cast<qsizetype>(Typed.size())));
    EXPECT_EQ(entry(QStringLiteral("&Undo"))->text(), QStringLiteral("&Undo Precondition"));
    entry(QStringLiteral("&Undo"))->trigger();
    EXPECT_EQ(Views().txtPreCondition.Text(), before);
    EXPECT_EQ(entry(QStringLiteral("&Redo"))->text(), QStringLiteral("&Redo Precondition"));
    EXPECT_FALSE(entry(QStringLiteral("&Undo"))->isEnabled());
    entry(QStringLiteral("&Redo"))->trigger();
    EXPECT_EQ(Views().txtPreCondition.Text(), Typed);
}

TEST_F(MainWindowTest, SavesACellThatIsStillOpen)
{
    window->Current().Open(File("object.xml"));
    Views().MainTab.UserClicksTab(1);
    Views().RulesGrid.UserClicksCell(1, 1, Grid::Clicks::Double);
    Views().txtgrdline.UserTypes(u"upper(custs001.name)");
    EXPECT_TRUE(window->Current().Save());
    EXPECT_NE(OnDisk().find("<NAME TEXT=\"\" TYPE=\"0\">upper(custs001.name)</NAME>"), std::string::npos);
}

TEST_F(MainWindowTest, AsksBeforeItLetsChangesGo)
{
    window->Current().Open(File("object.xml"));
    EXPECT_TRUE(window->Current().MayLetGo()); // nothing to ask

    Views().txtPreCondition.UserTypes(Text(Typed));
    {
        ModalAnswer cancel(Press(QMessageBox::Cancel));
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(cancel.WasAsked());
    }
    ModalAnswer discard(Press(QMessageBox::Discard));
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(discard.WasAsked());
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    EXPECT_TRUE(QDir(File("drafts")).entryList({QStringLiteral("*.draft.xml")}).isEmpty());
}

TEST_F(MainWindowTest, SavesWhenThatIsTheAnswer)
{
    window->Current().Open(File("object.xml"));
    Views().txtPreCondition.UserTypes(Text(Typed));
    ModalAnswer save(Press(QMessageBox::Save));
    EXPECT_TRUE(window->close());
    EXPECT_NE(OnDisk().find("customers of today"), std::string::npos);
}

TEST_F(MainWindowTest, WritesNothingWhenTheSaveFails)
{
    window->Current().Open(File("object.xml"));
    Views().txtMainQuery.UserTypes(u"dump 40000 | past every number\r\n");
    ModalAnswer box(Press(QMessageBox::Ok));
    EXPECT_FALSE(window->Current().Save());
    EXPECT_TRUE(box.WasAsked());
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    EXPECT_EQ(Views().txtMainQuery.Text(), u"dump 40000 | past every number\r\n");
}

TEST_F(MainWindowTest, TellsAFileThatCanNotBeWrittenAndKeepsTheChanges)
{
    window->Current().Open(File("object.xml"));
    Views().txtPreCondition.UserTypes(Text(Typed));
    ModalAnswer box(Press(QMessageBox::Ok));
    EXPECT_FALSE(window->Current().SaveTo(File("nowhere/object.xml")));
    EXPECT_TRUE(box.WasAsked());
    EXPECT_TRUE(window->Current().Object()->HasChanges());
    EXPECT_EQ(window->Current().Path(), File("object.xml"));
}

TEST_F(MainWindowTest, TellsWhyItSavesNothingWhileAPanelIsOpen)
{
    window->Current().Open(File("object.xml"));
    Views().CmdFunction.UserClicks();
    for (const char* caption : {"&Save", "Save &As...", "&Import Catalogue..."}) {
        ModalAnswer box([](QWidget& modal) {
            auto& message = dynamic_cast<QMessageBox&>(modal);
            EXPECT_TRUE(message.informativeText().contains(QStringLiteral("panel of the functions is open")));
            message.button(QMessageBox::Ok)->click();
        });
        ASSERT_TRUE(Action(QString::fromUtf8(caption))->isEnabled()) << caption;
        Action(QString::fromUtf8(caption))->trigger();
        EXPECT_TRUE(box.WasAsked()) << caption;
    }
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    Views().txtFunctions.UserTypes(u"a function");
    Views().CmdOk.UserClicks();
    EXPECT_TRUE(Action(QStringLiteral("&Save"))->isEnabled());
    EXPECT_TRUE(window->Current().Save());
    EXPECT_NE(OnDisk().find("<FUNCTIONS>a function</FUNCTIONS>"), std::string::npos);
}

TEST_F(MainWindowTest, AsksBeforeItOverwritesWhatAnotherProgramWrote)
{
    window->Current().Open(File("object.xml"));
    Put(folder / "object.xml", "somebody else's");
    ModalAnswer cancel(Press(QMessageBox::Cancel));
    EXPECT_FALSE(window->Current().Save());
    EXPECT_TRUE(cancel.WasAsked());
    EXPECT_EQ(OnDisk(), "somebody else's");
}

TEST_F(MainWindowTest, ChangesNothingInAReadOnlyObject)
{
    window->Current().Open(File("object.xml"), Access::ReadOnly);
    EXPECT_TRUE(Views().txtPreCondition.Locked());
    EXPECT_FALSE(Action(QStringLiteral("&Save"))->isEnabled());
    EXPECT_FALSE(window->Current().Save());
    Views().MainTab.UserClicksTab(1);
    EXPECT_FALSE(window->Current().Object()->HasChanges());
    EXPECT_FALSE(Views().CmdFuncBuild.Enabled());

    Action(QStringLiteral("&Read-only"))->trigger(); // and back to editing
    EXPECT_FALSE(Views().txtPreCondition.Locked());
}

TEST_F(MainWindowTest, TellsWhatCanNotBeOpenedAndKeepsWhatIsOpen)
{
    window->Current().Open(File("object.xml"));
    Put(folder / "broken.xml", "<partn101><PREC></partn101>");
    for (const char* name : {"broken.xml", "missing.xml"}) {
        ModalAnswer box(Press(QMessageBox::Ok));
        window->Current().Open(File(name));
        EXPECT_TRUE(box.WasAsked()) << name;
        EXPECT_EQ(window->Current().Path(), File("object.xml"));
    }
}

TEST_F(MainWindowTest, RemembersTheFilesThatWereOpened)
{
    window->Current().Open(File("object.xml"));
    Put(folder / "other.xml", SmallObject);
    window->Current().Open(File("other.xml"));
    EXPECT_EQ(settings.Recent().Paths(), QStringList({File("other.xml"), File("object.xml")}));
}

TEST_F(MainWindowTest, AsksToSaveANewObject)
{
    window->Current().OpenUnsaved({{}, QByteArray::fromStdString(SmallObject)});
    EXPECT_TRUE(window->Current().Object()->HasChanges());
    EXPECT_TRUE(window->Current().SaveTo(File("new.xml")));
    EXPECT_EQ(OnDisk("new.xml"), SmallObject);
    EXPECT_FALSE(window->Current().Object()->HasChanges());
    EXPECT_EQ(window->Current().Path(), File("new.xml"));
}

TEST_F(MainWindowTest, ImportsACatalogueIntoTheOpenObject)
{
    window->Current().Open(File("object.xml"));
    Put(folder / "tables.csv", "side,table,field,TYPE\nsource,prodc001,id,L\ntarget,partn101,code,S\n");
    ModalAnswer import([](QWidget& modal) {
        for (QPushButton* button : modal.findChildren<QPushButton*>()) {
            if (button->text() == QStringLiteral("&Import"))
                button->click();
        }
    });
    window->Import().Import(File("tables.csv"));
    EXPECT_TRUE(window->Current().Object()->HasChanges());
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    EXPECT_TRUE(window->Current().Save());
    EXPECT_NE(OnDisk().find("<PRODC001><ID TYPE=\"L\" FNo=\"1\"/></PRODC001></SRCTAB>"), std::string::npos);
    EXPECT_NE(OnDisk().find("<TARTAB><PARTN101><CODE TYPE=\"S\" No=\"1\" FNo=\"1\"/></PARTN101></TARTAB>"),
              std::string::npos);
    EXPECT_NE(OnDisk().find("custs001.code</CODE>"), std::string::npos);
}

TEST_F(MainWindowTest, TellsOneBoxForAFailureAndGoesOn)
{
    window->Current().Open(File("object.xml"));
    ModalAnswer box(Press(QMessageBox::Ok));
    Designer().FieldMapping(QStringLiteral("no cell is there yet"));
    EXPECT_TRUE(box.WasAsked());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(window->Current().Save());
}

TEST_F(MainWindowTest, KeepsADraftWhileThereAreChanges)
{
    const auto kept = [this] { return QDir(File("drafts")).entryList({QStringLiteral("*.draft.xml")}).size() == 1; };
    window->Current().Open(File("object.xml"));
    Views().txtPreCondition.UserTypes(Text(Typed));
    EXPECT_TRUE(WaitFor(kept));
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    EXPECT_TRUE(window->Current().Save());
    EXPECT_FALSE(kept());
}

TEST_F(MainWindowTest, OpensAFileThatIsDroppedOnAScript)
{
    window->Current().Open(File("object.xml"));
    Put(folder / "other.xml", SmallObject);
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(File("other.xml"))});
    auto& box = dynamic_cast<QPlainTextEdit&>(Designer().Surface().WidgetOf(Views().txtPreCondition));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &drop);
    EXPECT_TRUE(WaitFor([this] { return window->Current().Path() == File("other.xml"); }));
    EXPECT_EQ(Views().txtPreCondition.Text(), u"migrate custs001 | customers");
}

std::function<void(QWidget&)> PressReadOnly(QString& told)
{
    return [&told](QWidget& modal) {
        auto& box = dynamic_cast<QMessageBox&>(modal);
        told = box.text() + u'\n' + box.informativeText() + u'\n' + box.detailedText();
        for (QAbstractButton* button : box.buttons()) {
            if (button->text() == QStringLiteral("Open &Read-only"))
                button->click();
        }
    };
}

TEST_F(MainWindowTest, OpensAnObjectWithFaultyFieldNumbersForLookingOnly)
{
    const std::string faulty = With(SmallObject, "<NAME No=\"2\"", "<NAME No=\"3\"");
    Put(folder / "faulty.xml", faulty);
    QString told;
    ModalAnswer box(PressReadOnly(told));
    window->Current().Open(File("faulty.xml"));
    ASSERT_TRUE(box.WasAsked());
    EXPECT_TRUE(told.contains(QStringLiteral("Table PARTN101: NAME has No=\"3\" in place 2.")));
    ASSERT_NE(window->Current().Object(), nullptr);
    EXPECT_EQ(window->Current().Object()->AccessMode(), Access::ReadOnly);
    EXPECT_FALSE(Action(QStringLiteral("&Save"))->isEnabled());
    EXPECT_FALSE(window->Current().SaveTo(File("faulty.xml")));
    EXPECT_EQ(OnDisk("faulty.xml"), faulty);
}

TEST_F(MainWindowTest, ShowsNothingOfFaultyFieldNumbersWhenThatIsTheAnswer)
{
    Put(folder / "faulty.xml", With(SmallObject, "<NAME No=\"2\"", "<NAME No=\"1\""));
    ModalAnswer box([this](QWidget& modal) {
        EXPECT_EQ(window->Current().Object(), nullptr); // asked before anything is shown
        dynamic_cast<QMessageBox&>(modal).button(QMessageBox::Cancel)->click();
    });
    window->Current().Open(File("faulty.xml"));
    EXPECT_TRUE(box.WasAsked());
    EXPECT_EQ(window->Current().Object(), nullptr);
}

TEST_F(MainWindowTest, TellsWhichLineKeepsAScriptFromBeingStored)
{
    window->Current().Open(File("object.xml"));
    Designer().Surface().Act(
        [this] { Views().txtMainQuery.UserTypes(u"dump 1\r\ndump 40000 | past every number\r\n"); });
    QString told;
    ModalAnswer box([&](QWidget& modal) {
        told = dynamic_cast<QMessageBox&>(modal).informativeText();
        Press(QMessageBox::Ok)(modal);
    });
    EXPECT_FALSE(window->Current().Save());
    EXPECT_TRUE(told.contains(QStringLiteral("The main query of custs001 names dump 40000 in line 2.")))
        << told.toStdString();
}

TEST_F(MainWindowTest, SavesAfterTheWayOutThatItTold)
{
    window->Current().Open(File("object.xml"));
    ViewSurface& surface = Designer().Surface();
    const auto type = [&](TextView text) { surface.Act([&] { Views().txtMainQuery.UserTypes(Text(text)); }); };
    const auto clickRow = [&] {
        ModalAnswer box(Press(QMessageBox::Ok)); // comes up where the old text still stands in the way
        surface.Act([&] { Views().lstMigrateSource.UserClicksRow(1); });
        QApplication::processEvents();
    };
    type(u"dump 40000");
    clickRow();
    type(u"dump 4");
    clickRow();
    clickRow();
    EXPECT_TRUE(window->Current().Save());
    EXPECT_NE(OnDisk().find("<QUERY ST=\"custs001\">dump 4</QUERY>"), std::string::npos);
}

TEST_F(MainWindowTest, OpensTheRulesOfATableThatTheCatalogueHolds)
{
    window->Current().Open(File("object.xml"));
    Designer().Surface().Act(
        [this] { Views().txtPreCondition.UserTypes(u"migrate custs001\r\nmigrate ordrs001\r\n"); });
    QApplication::processEvents();
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001")); // what is being typed is not read
    Designer().Surface().Act([this] { Views().Tree.UserLeaves(); });
    EXPECT_FALSE(Views().MainTab.TabEnabled(1));
    EXPECT_TRUE(WaitFor([this] { return Views().MainTab.TabEnabled(1); }));
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001,ordrs001"));
    EXPECT_EQ(window->Current().Object()->RulesHint(), QString());
}

TEST_F(MainWindowTest, TellsATableThatTheCatalogueLacksWhileTheRulesAreShut)
{
    Put(folder / "lacking.xml", With(SmallObject, "migrate custs001", "migrate custs001\nmigrate nosuc001"));
    window->Current().Open(File("lacking.xml"));
    EXPECT_FALSE(Views().MainTab.TabEnabled(1));
    const auto shown = [this](const QString& text) {
        for (const QLabel* label : window->statusBar()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(text))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(shown(QStringLiteral("no source table nosuc001")));
    EXPECT_FALSE(window->Current().Object()->HasChanges());

    Designer().PreCondition(QStringLiteral("migrate custs001\nmigrate ordrs001"));
    EXPECT_TRUE(WaitFor([&] { return !shown(QStringLiteral("nosuc001")); }));
}

TEST_F(MainWindowTest, OpensTheRulesOfAnObjectWhoseTablesAreNotListed)
{
    Put(folder / "unlisted.xml", With(With(SmallObject, "migrate custs001", "migrate custs001\nmigrate ordrs001"),
                                      "custs001</SRCTBL>", "</SRCTBL>"));
    window->Current().Open(File("unlisted.xml"));
    EXPECT_TRUE(Views().MainTab.TabEnabled(1));
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001,ordrs001"));
    EXPECT_FALSE(window->Current().Object()->HasChanges());
}

TEST_F(MainWindowTest, KeepsRoomForTheButtonsOfPanelsAndRules)
{
    window->Current().Open(File("object.xml"));
    window->resize(300, 200);
    EXPECT_GE(window->width(), 750);
    Designer().Surface().Act([this] { Views().CmdFunction.UserClicks(); });
    QApplication::processEvents();
    const QWidget& ok = Designer().Surface().WidgetOf(Views().CmdOk);
    EXPECT_EQ(ok.visibleRegion().boundingRect(), ok.rect());
    Designer().Surface().Act([this] { Views().CmdOk.UserClicks(); });
    Designer().Surface().Act([this] { Views().MainTab.UserClicksTab(1); });
    QApplication::processEvents();
    for (const View* view : {static_cast<const View*>(&Views().CmdMap), static_cast<const View*>(&Views().CmdEditRule),
                             static_cast<const View*>(&Views().CmdDumpText)}) {
        const QWidget& button = Designer().Surface().WidgetOf(*view);
        const QRect place(button.mapTo(window.get(), QPoint()), button.size());
        EXPECT_TRUE(window->rect().contains(place)) << button.objectName().toStdString();
        EXPECT_EQ(button.visibleRegion().boundingRect(), button.rect()) << button.objectName().toStdString();
    }
}

} // namespace
} // namespace rulemesh
