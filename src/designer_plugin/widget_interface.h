#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace rulemesh {

/// What Qt Designer asks about RulemeshWidget, and where it gets one.
///
/// A form keeps the settings that can be read and set without a side effect. The object's text is none of them: reading
/// it saves and may ask the user.
class WidgetInterface : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override;
    [[nodiscard]] QString whatsThis() const override;
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QString domXml() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    [[nodiscard]] bool isInitialized() const override { return initialized_; }
    void initialize(QDesignerFormEditorInterface* core) override;
    QWidget* createWidget(QWidget* parent) override;

private:
    bool initialized_ = false;
};

} // namespace rulemesh
