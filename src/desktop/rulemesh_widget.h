#pragma once

#include <functional>
#include <memory>

#include <QString>
#include <QStringList>
#include <QWidget>

#include "base/failure.h"
#include "platform/platform.h"
#include "script/control_events.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

class DesktopPlatform;
class ViewSurface;

/// The designer as a widget: owns a ctlRulemesh, draws its views with real widgets and hands real input to them.
///
/// The members of the control stand here under their own names, as slots and, where a value can be read and set without
/// a side effect, as properties; its events are signals. A failure that the control does not handle never leaves the
/// widget as an exception: FailureRaised tells its number and text, and a member that should return a text returns a
/// null one. A host that wants the exceptions calls the members of Control().
class RulemeshWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString TargetTable READ TargetTable WRITE TargetTable)
    Q_PROPERTY(bool Edit READ Edit WRITE Edit)
    Q_PROPERTY(QString Editor READ Editor WRITE Editor)
    Q_PROPERTY(bool Syntax_Highlight READ Syntax_Highlight WRITE Syntax_Highlight)

public:
    explicit RulemeshWidget(QWidget* parent = nullptr);

    /// A widget whose temporary files and copy file are the host's business.
    explicit RulemeshWidget(std::unique_ptr<TextFiles> files, QWidget* parent = nullptr);

    /// A widget on a platform and events of the host's own, which must outlive it; nothing is shown by the default
    /// ones then, and no signal but FailureRaised is sent.
    RulemeshWidget(Platform& platform, ControlEvents& events, QWidget* parent = nullptr);
    ~RulemeshWidget() override;

    [[nodiscard]] ctlRulemesh& Control() noexcept { return *control_; }
    [[nodiscard]] ViewSurface& Surface() noexcept { return *surface_; }

    [[nodiscard]] QString TargetTable() const;
    [[nodiscard]] bool Edit() const;
    [[nodiscard]] QString Editor() const;
    [[nodiscard]] bool Syntax_Highlight() const;

    /// What Undo or Redo would do, in a word or two for a menu; "" for nothing.
    Q_INVOKABLE [[nodiscard]] QString UndoText() const;
    Q_INVOKABLE [[nodiscard]] QString RedoText() const;

    /// What Undo and Redo can reach, the oldest change first, and how many of them are done.
    Q_INVOKABLE [[nodiscard]] QStringList StepNames() const;
    Q_INVOKABLE [[nodiscard]] int StepsDone() const;

    /// Saves and prunes, and may ask the user; a null text when a failure was raised.
    Q_INVOKABLE [[nodiscard]] QString MappingObjectXML();
    Q_INVOKABLE [[nodiscard]] QByteArray MappingObjectXmlUtf8();
    Q_INVOKABLE [[nodiscard]] QString SourceTables() const;
    Q_INVOKABLE [[nodiscard]] QString MainQuery() const;
    Q_INVOKABLE [[nodiscard]] QString FieldMapping() const;
    Q_INVOKABLE [[nodiscard]] int GetListItemNumber(const QString& strFieldName) const;
    Q_INVOKABLE [[nodiscard]] int GetRowNumber(const QString& i_StrFieldName) const;

    /// What runs a layout pass: the widget whenever it is resized, or only the host, by Control().Resize, for a
    /// designer that is larger or smaller than its widget.
    enum class LayoutPasses { WhenResized, ByHost };
    void SetLayoutPasses(LayoutPasses passes) noexcept { layoutPasses_ = passes; }

    /// Gives the boxes that have no title of their own one; without, it is the application's display name.
    void SetBoxTitle(const QString& title);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public slots:
    void TargetTable(const QString& StrTable);
    void Edit(bool BoolEdit);
    void Editor(const QString& StrEditor);
    void Syntax_Highlight(bool BoolHighlight);
    void MappingObjectXML(const QString& StrXml);
    void MappingObjectXmlUtf8(const QByteArray& utf8);
    void SourceTables(const QString& i_SourceTables);
    /// Save what they set, and may ask the user.
    void PreCondition(const QString& StrText);
    void MainQuery(const QString& StrText);
    void FieldMapping(const QString& StrRule);
    void ShowControl();
    void SetTextNumber(const QString& StrType, int LngTextNumber, const QString& StrKey1, const QString& StrKey2);
    void Setfocus();
    void GridEdit(int KeyAscii);

    /// Takes the last change back, or does it again; false when there is none, while an action is running and in a
    /// read-only designer. The boxes' own undo commands come here too.
    bool Undo();
    bool Redo();

    /// Takes changes back or does them again until so many are done, in one go.
    bool GoToStep(int done);

    /// Takes the focus out of the control as a click elsewhere does. A host calls it before it reads MappingObjectXML:
    /// that read saves what the views hold, but a cell that is still open is committed by leaving it alone.
    void TakeFocusOut();

signals:
    void ShowSourceTablesPopUp(const QString& i_SourceTables);
    void ShowConditionBuilderPopUp(const QString& i_ConditionString, const QString& i_SourceTables);
    void ShowQueryBuilderPopUp(const QString& i_QueryString, const QString& i_SourceTables);
    void ShowFunctionalTextPopUp(const QString& DocType, int LngTextNumber, const QString& StrKey1,
                                 const QString& StrKey2);
    void ShowFunctionBuilderPopUp(const QString& StrCondition, const QString& StrSourceTables);
    void SaveDoneDisabled();
    void SaveDoneEnabled();

    /// A failure that ended a user's action or a call of the host; what was done before it stays done.
    void FailureRaised(int number, const QString& text);

    /// The work is no longer what it was. Comes once at the end of an action of the user or the host, whatever ran
    /// inside of it, and of an undo or redo.
    void WorkChanged();

    /// What Undo or Redo would do is no longer what it was.
    void HistoryChanged();

    /// ShowControl found an object whose root is another than TargetTable: all views stay empty.
    void RootIsForeign(const QString& root);

    /// The user did something to the designer (or a program did); the object may have changed.
    void Acted();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Build(Platform& platform, ControlEvents& events);

    class SignalEvents;
    class History;
    std::unique_ptr<DesktopPlatform> platform_;
    std::unique_ptr<SignalEvents> events_;
    std::unique_ptr<ctlRulemesh> control_;
    std::unique_ptr<History> history_;
    std::unique_ptr<ViewSurface> surface_;
    LayoutPasses layoutPasses_ = LayoutPasses::WhenResized;
};

} // namespace rulemesh
