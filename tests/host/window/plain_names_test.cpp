// Names of files that look like markup or hold an ampersand.

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "host/host_desk.h"
#include "host/window/start_page.h"

namespace rulemesh {
namespace {

class PlainNames : public HostDesk {
protected:
    PlainNames()
    {
        Put(folder / "a & <b>b.xml", SmallObject);
        window->Current().Open(File("a & <b>b.xml"));
        window->Current().Close();
    }
};

const QString Tip = QStringLiteral("a &amp; &lt;b&gt;b.xml");

TEST_F(PlainNames, StandInTheMenuAsTheyAre)
{
    const QAction* entry = Action(QStringLiteral("&1 a && <b>b.xml"));
    ASSERT_NE(entry, nullptr);
    EXPECT_TRUE(entry->toolTip().contains(Tip));
}

TEST_F(PlainNames, StandOnTheStartPageAsTheyAre)
{
    const QPushButton* found = nullptr;
    for (const QPushButton* button : dynamic_cast<StartPage&>(*window->centralWidget()).findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("a && <b>b.xml"))
            found = button;
    }
    ASSERT_NE(found, nullptr);
    EXPECT_TRUE(found->toolTip().contains(Tip));
}

TEST_F(PlainNames, StandInBoxesAsTheyAre)
{
    Put(folder / "a & <b>b.xml", "nothing of the kind");
    QList<Qt::TextFormat> formats;
    ModalAnswer box([&](QWidget& modal) {
        auto& shown = dynamic_cast<QMessageBox&>(modal);
        EXPECT_TRUE(shown.text().startsWith(QStringLiteral("a & <b>b.xml can't be opened.")));
        for (const QLabel* label : shown.findChildren<QLabel*>()) {
            if (!label->text().isEmpty())
                formats += label->textFormat();
        }
        shown.accept();
    });
    window->Current().Open(File("a & <b>b.xml"));
    EXPECT_TRUE(box.WasAsked());
    EXPECT_FALSE(formats.isEmpty());
    for (const Qt::TextFormat format : formats)
        EXPECT_EQ(format, Qt::PlainText);
}

} // namespace
} // namespace rulemesh
