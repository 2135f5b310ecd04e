#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "desktop/captions.h"
#include "desktop/designer_window.h"
#include "desktop/list_widget.h"

namespace rulemesh {

namespace {

// What of an object looks like markup is shown as it stands.
class PlainText : public DesignerWindow {
protected:
    // The tool tip as it reads, of a widget at a place.
    static QString ToolTipAt(QWidget& widget, QPoint place)
    {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &event);
        const QString shown = QToolTip::text();
        return Qt::mightBeRichText(shown) ? QTextDocumentFragment::fromHtml(shown).toPlainText() : shown;
    }
};

} // namespace

TEST_F(PlainText, LabelsShowMarkupAndAmpersandsAsTheyStand)
{
    Views().lblTargetTableDescription.Caption(u"<b>x</b> R&D");
    Surface().Sync();
    const auto& label = dynamic_cast<QLabel&>(*WidgetOf(Views().lblTargetTableDescription));
    EXPECT_EQ(label.text(), QStringLiteral("<b>x</b> R&D"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.buddy(), nullptr); // else the character behind "&" would be underlined
    EXPECT_EQ(label.accessibleName(), QStringLiteral("<b>x</b> R&D"));
}

TEST_F(PlainText, FrameKeepsItsAccessKeyAndTheCommentBehindIt)
{
    Views().Details.Caption(u"F&ields of Dump:  5:R&D");
    Surface().Sync();
    const auto& frame = dynamic_cast<QGroupBox&>(*WidgetOf(Views().Details));
    EXPECT_EQ(frame.title(), QStringLiteral("F&ields of Dump:  5:R&&D"));
    EXPECT_EQ(frame.accessibleName(), QStringLiteral("Fields of Dump:  5:R&D"));
}

TEST_F(PlainText, ToolTipOfAViewIsPlain)
{
    ShowRules();
    Views().CmbDump.ToolTip(u"<b>x</b> & <i>y</i>");
    Surface().Sync();
    QWidget& combo = *WidgetOf(Views().CmbDump);
    EXPECT_EQ(combo.toolTip(), QStringLiteral("<b>x</b> & <i>y</i>"));
    EXPECT_EQ(ToolTipAt(combo, combo.rect().center()), QStringLiteral("<b>x</b> & <i>y</i>"));
}

TEST_F(PlainText, ToolTipOfARuleIsPlain)
{
    ShowRules();
    Views().RulesGrid.TextMatrix(0, 1, u"<b>x</b>");
    Surface().Sync();
    auto& grid = dynamic_cast<QAbstractItemView&>(*WidgetOf(Views().RulesGrid));
    const QPoint cell = grid.visualRect(grid.model()->index(0, 1)).center();
    EXPECT_EQ(ToolTipAt(*grid.viewport(), cell), QStringLiteral("<b>x</b>"));
}

TEST(Captions, HaveOneAccessKeyAtMost)
{
    EXPECT_EQ(AccessKeyOf(u"Ma&p"), 'P');
    EXPECT_EQ(AccessKeyOf(u"salt & pepper"), 0);
    EXPECT_EQ(AccessKeyOf(u"&"), 0);
    EXPECT_EQ(WithAccessKey(u"F&ields: a & b&c"), QStringLiteral("F&ields: a && b&&c"));
    EXPECT_EQ(WithoutAccessKey(u"F&ields: a & b&c"), QStringLiteral("Fields: a & b&c"));
}

} // namespace rulemesh
