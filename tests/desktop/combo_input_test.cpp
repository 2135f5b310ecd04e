#include <QAbstractItemView>
#include <QComboBox>

#include "desktop/designer_window.h"

namespace rulemesh {

namespace {

class ComboInput : public DesignerWindow {
protected:
    ComboInput() { ShowRules(); }

    ComboBox& Dumps() { return Views().CmbDump; }
    QComboBox& Box() { return dynamic_cast<QComboBox&>(*WidgetOf(Dumps())); }
};

} // namespace

TEST_F(ComboInput, KeysAndTypingAheadChooseByTheUsersEntrance)
{
    std::vector<int> chosen;
    Dumps().Click = [&] { chosen.push_back(Dumps().ListIndex()); };
    Surface().FocusFor(Dumps());
    QTest::keyClick(&Box(), Qt::Key_End);
    QTest::keyClick(&Box(), Qt::Key_Up);
    QTest::keyClicks(&Box(), ToQt(Dumps().Entries().front().Text).left(1));
    EXPECT_EQ(chosen, (std::vector{2, 1, 0}));
    EXPECT_EQ(Box().currentIndex(), Dumps().ListIndex());
}

TEST_F(ComboInput, OnlyTheLeftButtonOpensTheEntries)
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        QTest::mouseClick(&Box(), button);
        EXPECT_FALSE(Box().view()->isVisible());
    }
    QTest::mouseClick(&Box(), Qt::LeftButton);
    EXPECT_TRUE(Box().view()->isVisible());
    Box().hidePopup();
}

TEST_F(ComboInput, ChoiceThatIsLostGoesBackToTheChosenEntry)
{
    Surface().FocusFor(Views().lstTargetFields);
    Views().lstTargetFields.LostFocus = [this] { Views().lstSourceFields.SetFocus(); };
    const int before = Dumps().ListIndex();
    Box().setCurrentIndex(before + 1);
    emit Box().activated(before + 1);
    EXPECT_EQ(Dumps().ListIndex(), before);
    EXPECT_EQ(Box().currentIndex(), before);
}

} // namespace rulemesh
