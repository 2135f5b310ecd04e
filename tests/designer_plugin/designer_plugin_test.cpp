#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace {

using ::testing::IsSupersetOf;
using ::testing::UnorderedElementsAre;

class DesignerPlugin : public ::testing::Test {
protected:
    DesignerPlugin()
    {
        const QDir folder(RULEMESH_DESIGNER_PLUGINS);
        loader_.setFileName(folder.filePath(folder.entryList(QDir::Files).value(0)));
        plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader_.instance());
    }

    void SetUp() override { ASSERT_NE(plugin, nullptr) << loader_.errorString().toStdString(); }

    QDesignerCustomWidgetInterface* plugin = nullptr;

private:
    QPluginLoader loader_;
};

// The form of order_form.ui, as a program loads it. It knows the designer by its name alone.
class DesignerForm : public ::testing::Test {
protected:
    DesignerForm()
    {
        QUiLoader loader;
        loader.addPluginPath(RULEMESH_DESIGNER_PLUGINS);
        QFile ui(RULEMESH_FORM);
        if (ui.open(QIODevice::ReadOnly))
            form.reset(loader.load(&ui));
        if (form != nullptr)
            designer = form->findChild<QWidget*>("designer");
    }

    void SetUp() override { ASSERT_NE(designer, nullptr); }

    void OpenSample()
    {
        QFile file(RULEMESH_OBJECT);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        ASSERT_TRUE(QMetaObject::invokeMethod(designer, "MappingObjectXmlUtf8", Q_ARG(QByteArray, file.readAll())));
        ASSERT_TRUE(QMetaObject::invokeMethod(designer, "ShowControl"));
        form->show();
    }

    QAbstractButton* ButtonOf(const QString& caption)
    {
        for (QAbstractButton* button : designer->findChildren<QAbstractButton*>())
            if (button->text() == caption)
                return button;
        return nullptr;
    }

    std::unique_ptr<QWidget> form;
    QWidget* designer = nullptr;
};

std::vector<std::string> OwnProperties(const QMetaObject& type)
{
    std::vector<std::string> names;
    for (int index = type.propertyOffset(); index < type.propertyCount(); ++index)
        if (type.property(index).isDesignable())
            names.emplace_back(type.property(index).name());
    return names;
}

std::vector<std::string> OwnSignals(const QMetaObject& type)
{
    std::vector<std::string> names;
    for (int index = type.methodOffset(); index < type.methodCount(); ++index)
        if (type.method(index).methodType() == QMetaMethod::Signal)
            names.push_back(type.method(index).name().toStdString());
    return names;
}

TEST_F(DesignerPlugin, TellsDesignerWhereTheWidgetBelongs)
{
    EXPECT_EQ(plugin->name(), "rulemesh::RulemeshWidget");
    EXPECT_EQ(plugin->group(), "Rulemesh");
    EXPECT_EQ(plugin->includeFile(), "desktop/rulemesh_widget.h");
    EXPECT_FALSE(plugin->isContainer());
}

TEST_F(DesignerPlugin, HasAPictureAndWordsForTheWidgetBox)
{
    EXPECT_FALSE(plugin->icon().pixmap(22).isNull());
    EXPECT_FALSE(plugin->toolTip().isEmpty());
    EXPECT_FALSE(plugin->whatsThis().isEmpty());
}

TEST_F(DesignerPlugin, MakesTheWidgetThatItNames)
{
    QWidget parent;
    EXPECT_TRUE(plugin->createWidget(&parent)->inherits("rulemesh::RulemeshWidget"));
}

TEST_F(DesignerPlugin, IsInitializedOnce)
{
    plugin->initialize(nullptr);
    EXPECT_TRUE(plugin->isInitialized());
}

TEST_F(DesignerPlugin, DropsAFormThatLoads)
{
    QByteArray xml = plugin->domXml().toUtf8();
    QBuffer ui(&xml);
    QUiLoader loader;
    loader.addPluginPath(RULEMESH_DESIGNER_PLUGINS);
    const std::unique_ptr<QWidget> dropped(loader.load(&ui));
    ASSERT_NE(dropped, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(dropped->objectName(), "rulemeshWidget");
    EXPECT_TRUE(dropped->inherits("rulemesh::RulemeshWidget"));
}

TEST_F(DesignerForm, HoldsTheDesignerItself) { EXPECT_TRUE(designer->inherits("rulemesh::RulemeshWidget")); }

TEST_F(DesignerForm, SetsTheProperties)
{
    EXPECT_EQ(designer->property("TargetTable").toString(), "salor101");
    EXPECT_TRUE(designer->property("Edit").toBool());
    EXPECT_EQ(designer->property("Editor").toString(), "kate --block");
    EXPECT_TRUE(designer->property("Syntax_Highlight").toBool());
}

// Reading the object's text saves and may ask the user: a property sheet must never do that.
TEST_F(DesignerForm, OffersNoPropertyWithASideEffect)
{
    EXPECT_THAT(OwnProperties(*designer->metaObject()),
                UnorderedElementsAre("TargetTable", "Edit", "Editor", "Syntax_Highlight"));
}

TEST_F(DesignerForm, OffersTheEventsAsSignals)
{
    EXPECT_THAT(OwnSignals(*designer->metaObject()),
                IsSupersetOf({"ShowSourceTablesPopUp", "ShowConditionBuilderPopUp", "ShowQueryBuilderPopUp",
                              "ShowFunctionBuilderPopUp", "ShowFunctionalTextPopUp", "SaveDoneDisabled",
                              "SaveDoneEnabled", "FailureRaised"}));
}

TEST_F(DesignerForm, ShowsTheObjectOfItsTargetTable)
{
    OpenSample();
    QString tables;
    ASSERT_TRUE(QMetaObject::invokeMethod(designer, "SourceTables", Q_RETURN_ARG(QString, tables)));
    EXPECT_EQ(tables, "ordrs001,ordde001,custm001,emply001,shipp001,prodc001");
}

TEST_F(DesignerForm, ConnectsTheSignals)
{
    OpenSample();
    auto* save = form->findChild<QWidget*>("save");
    ASSERT_NE(ButtonOf("F&unctions"), nullptr);
    ButtonOf("F&unctions")->click();
    EXPECT_TRUE(save->isHidden());
    ButtonOf("Ca&ncel")->click();
    EXPECT_FALSE(save->isHidden());
}

} // namespace

int main(int count, char** words)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleMock(&count, words);
    const QApplication application(count, words);
    return RUN_ALL_TESTS();
}
