#include "widget_interface.h"

#include <QIcon>

#include "desktop/rulemesh_widget.h"

namespace rulemesh {

QString WidgetInterface::name() const { return QString::fromLatin1(RulemeshWidget::staticMetaObject.className()); }

QString WidgetInterface::group() const { return QStringLiteral("Rulemesh"); }

QString WidgetInterface::toolTip() const { return QStringLiteral("Designer of data-migration mappings"); }

QString WidgetInterface::whatsThis() const
{
    return QStringLiteral("Shows a mapping object and lets the user maintain it: source tables and scripts on one tab, "
                          "dumps and their rules on the other. The program hands the object's text over at run time "
                          "and calls ShowControl.");
}

QIcon WidgetInterface::icon() const { return QIcon(QStringLiteral(":/rulemesh/designer_plugin/rulemesh_widget.png")); }

QString WidgetInterface::includeFile() const { return QStringLiteral("desktop/rulemesh_widget.h"); }

QString WidgetInterface::domXml() const
{
    return QStringLiteral(R"(<ui language="c++" displayname="Mapping Designer">
  <widget class="rulemesh::RulemeshWidget" name="rulemeshWidget">
    <property name="geometry"><rect><x>0</x><y>0</y><width>780</width><height>517</height></rect></property>
  </widget>
  <customwidgets>
    <customwidget>
      <class>rulemesh::RulemeshWidget</class>
      <propertyspecifications>
        <tooltip name="TargetTable">Name of the object's root element: 8 characters</tooltip>
        <tooltip name="Edit">Whether the user may change the object; it cannot be freed again once locked</tooltip>
        <tooltip name="Editor">Command of the external editor; blank for the one of the desktop</tooltip>
        <tooltip name="Syntax_Highlight">Whether the script boxes colour their text</tooltip>
        <stringpropertyspecification name="TargetTable" notr="true" type="singleline"/>
        <stringpropertyspecification name="Editor" notr="true" type="singleline"/>
      </propertyspecifications>
    </customwidget>
  </customwidgets>
</ui>
)");
}

void WidgetInterface::initialize(QDesignerFormEditorInterface* /*core*/) { initialized_ = true; }

QWidget* WidgetInterface::createWidget(QWidget* parent) { return new RulemeshWidget(parent); }

} // namespace rulemesh
