#include <QSignalSpy>

#include "desktop/designer_window.h"

// What a host is promised by the widget itself.

namespace rulemesh {
namespace {

class WidgetPromises : public DesignerWindow {};

TEST_F(WidgetPromises, OnlyTakeFocusOutCommitsAnOpenCell)
{
    ShowRules();
    const Text before = Views().RulesGrid.TextMatrix(0, 1);
    Surface().Act([this] { Views().Tree.MoveFocus(Views().RulesGrid); });
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("t"));
    ASSERT_EQ(Focused(), u"txtgrdline");
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("yped.rule"));

    EXPECT_FALSE(Designer.MappingObjectXmlUtf8().contains("typed.rule"));
    EXPECT_EQ(Views().RulesGrid.TextMatrix(0, 1), before);

    // By name, as a host reaches it that has the widget from a form.
    ASSERT_TRUE(QMetaObject::invokeMethod(&Designer, "TakeFocusOut"));
    EXPECT_EQ(Views().RulesGrid.TextMatrix(0, 1), u"typed.rule");
    EXPECT_TRUE(Designer.MappingObjectXmlUtf8().contains("typed.rule"));
}

TEST_F(WidgetPromises, ARootThatIsNotTheTargetTableIsToldToTheHost)
{
    RulemeshWidget strange(Desk, Events);
    const QSignalSpy told(&strange, &RulemeshWidget::RootIsForeign);
    strange.TargetTable(QStringLiteral("SALOR101"));
    strange.MappingObjectXmlUtf8(QByteArray::fromStdString(Sample("northwind.xml")));
    EXPECT_EQ(told.count(), 0);

    static QStringList said;
    said.clear();
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) { said << text; });
    strange.ShowControl();
    qInstallMessageHandler(before);
    EXPECT_EQ(said, QStringList(QStringLiteral("RulemeshWidget: nothing is shown, since the object's root is "
                                               "\"salor101\" and TargetTable is \"SALOR101\"")));
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.front().front().toString(), QStringLiteral("salor101"));
}

TEST_F(WidgetPromises, ARootThatIsTheTargetTableIsToldToNobody)
{
    const QSignalSpy told(&Designer, &RulemeshWidget::RootIsForeign);
    Designer.ShowControl();
    EXPECT_EQ(told.count(), 0);
}

} // namespace
} // namespace rulemesh
