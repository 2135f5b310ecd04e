#include <QLabel>
#include <QPushButton>
#include <QTabBar>

#include "desktop/designer_window.h"
#include "desktop/passive_edit.h"
#include "desktop/text_box_widget.h"

namespace rulemesh {

namespace {

class Looks : public DesignerWindow {
protected:
    // The least width, in twips, at which nothing is in the way of anything else.
    void MakeNarrowest()
    {
        const QSize size(Surface().Pixels(9750), Surface().Pixels(DesignHeight));
        Host.resize(size);
        Designer.resize(size);
    }

    // The captions that need more room than their button or label has, or stand outside of their parent.
    QStringList CutCaptions()
    {
        QStringList cut;
        for (View* view : Views().Tree.Views()) {
            const QWidget& widget = *WidgetOf(*view);
            if (!view->IsShown() || !widget.isVisible())
                continue;
            const auto* button = qobject_cast<const QPushButton*>(&widget);
            const bool tooSmall =
                button != nullptr &&
                button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + 6 > button->width();
            const bool outside = button != nullptr && !widget.parentWidget()->rect().contains(widget.geometry());
            if (tooSmall || outside)
                cut << ToQt(view->Name());
        }
        return cut;
    }
};

} // namespace

TEST_F(Looks, EveryViewThatTakesTheFocusHasAnAccessibleName)
{
    for (View* view : Views().Tree.Views()) {
        if (view->TakesFocus() || view->Kind() == ViewKind::Picture) {
            EXPECT_FALSE(WidgetOf(*view)->accessibleName().isEmpty()) << ToQt(view->Name()).toStdString();
        }
    }
}

TEST_F(Looks, NoTwoViewsOfATabShareAnAccessibleName)
{
    QStringList names;
    for (View* view : Views().Tree.Views()) {
        if (view->TakesFocus() && view->Parent() != nullptr && view->Parent()->Name() == u"FrmCondition" &&
            view->Visible())
            names << WidgetOf(*view)->accessibleName();
    }
    EXPECT_EQ(names.removeDuplicates(), 0) << names.join(u',').toStdString();
}

TEST_F(Looks, NoCaptionIsCutAtTheNarrowestWidth)
{
    MakeNarrowest();
    EXPECT_EQ(CutCaptions().join(u','), QString());
    ShowRules();
    EXPECT_EQ(CutCaptions().join(u','), QString());
}

TEST_F(Looks, ControlHasNoMinimumSize)
{
    EXPECT_LE(Designer.minimumSizeHint().width(), 1);
    EXPECT_LE(Designer.minimumSizeHint().height(), 1);
}

TEST_F(Looks, ViewsFollowTheSizeOfTheWidget)
{
    Designer.resize(Designer.width() + 300, Designer.height() + 100);
    const QWidget& script = *WidgetOf(Views().txtPreCondition);
    EXPECT_NEAR(script.geometry().right(), script.parentWidget()->width() - Surface().Pixels(120), 2);
    Designer.resize(Designer.width() - 200, Designer.height());
    EXPECT_NEAR(script.geometry().right(), script.parentWidget()->width() - Surface().Pixels(120), 2);
}

TEST_F(Looks, HostThatLaysOutByItselfIsNotDisturbed)
{
    Designer.SetLayoutPasses(RulemeshWidget::LayoutPasses::ByHost);
    const int before = Views().txtPreCondition.Width();
    Designer.resize(Designer.width() + 300, Designer.height());
    EXPECT_EQ(Views().txtPreCondition.Width(), before);
}

TEST_F(Looks, ScriptIsReadableInADarkPalette)
{
    Designer.Syntax_Highlight(true);
    QPalette dark;
    for (const auto role : {QPalette::Base, QPalette::Window, QPalette::AlternateBase, QPalette::Button})
        dark.setColor(role, QColor(30, 30, 30));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(role, Qt::white);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(dark);
    QApplication::processEvents();
    const QWidget& script = *WidgetOf(Views().txtPreCondition);
    const QImage picture = const_cast<QWidget&>(script).grab().toImage();
    int darkest = 0;
    for (int y = 0; y < picture.height(); y += 3) {
        for (int x = 0; x < picture.width(); x += 3)
            darkest += picture.pixelColor(x, y).lightness() < 128 ? 1 : 0;
    }
    QApplication::setPalette(before);
    EXPECT_GT(darkest, picture.width() * picture.height() / 9 * 8 / 10);
}

TEST_F(Looks, TabsAreNamedWithTheirAccessKeys)
{
    const auto& bar = dynamic_cast<QTabBar&>(*WidgetOf(Views().MainTab));
    EXPECT_EQ(bar.tabText(0), QStringLiteral("&Condition"));
    EXPECT_EQ(bar.tabText(1), QStringLiteral("Ru&les"));
}

TEST_F(Looks, FailureOfACallIsToldByTheSignalAndNotThrown)
{
    std::vector<int> numbers;
    QObject::connect(&Designer, &RulemeshWidget::FailureRaised, &Designer,
                     [&](int number, const QString& /*text*/) { numbers.push_back(number); });
    Designer.GridEdit(32); // the grid has no cell yet
    EXPECT_EQ(numbers, std::vector<int>{381});
}

TEST_F(Looks, FailureOfAClickIsToldByTheSignalAndNotThrown)
{
    std::vector<int> numbers;
    QObject::connect(&Designer, &RulemeshWidget::FailureRaised, &Designer,
                     [&](int number, const QString& /*text*/) { numbers.push_back(number); });
    Views().CmdBuildPre.Click = [] { throw Failure(FailureCode::Overflow); };
    QTest::mouseClick(WidgetOf(Views().CmdBuildPre), Qt::LeftButton);
    EXPECT_EQ(numbers, std::vector<int>{6});
}

} // namespace rulemesh
