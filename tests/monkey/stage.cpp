#include "monkey/stage.h"

#include <QCoreApplication>
#include <QFile>
#include <QVBoxLayout>

namespace rulemesh::monkey {

namespace {

// Stands in for an editor: adds a line to the file.
constexpr const char* Editor = "#!/bin/sh\nprintf 'dump 7 | edited\\n' >>\"$1\"\n";

} // namespace

MonkeyStage::MonkeyStage(QByteArray object, QString targetTable)
    : object_(std::move(object)), targetTable_(std::move(targetTable))
{
    qputenv("TMPDIR", folder_.path().toUtf8());
    QFile editor(folder_.filePath(QStringLiteral("editor")));
    if (!editor.open(QIODevice::WriteOnly) || editor.write(Editor) < 0)
        qFatal("no room for the editor");
    editor.close();
    editor.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    auto* layout = new QVBoxLayout(&window_); // the window owns it
    layout->addWidget(&line_);
    line_.setObjectName(QStringLiteral("HostLine"));
    window_.setWindowTitle(QStringLiteral("Host"));
    window_.resize(1000, 700);
    other_.resize(200, 100);
    other_.show();
    window_.show();
    Reopen();
    window_.activateWindow();
}

void MonkeyStage::Reopen()
{
    designer_.reset();
    designer_ = std::make_unique<RulemeshWidget>(&window_);
    dynamic_cast<QVBoxLayout&>(*window_.layout()).insertWidget(0, designer_.get(), 1);
    AnswerEvents();
    designer_->TargetTable(targetTable_);
    designer_->Edit(true);
    designer_->Editor(folder_.filePath(QStringLiteral("editor")));
    designer_->Syntax_Highlight(true);
    designer_->MappingObjectXmlUtf8(object_);
    designer_->show();
    designer_->ShowControl();
}

// What a host's own builders would give back.
void MonkeyStage::AnswerEvents()
{
    RulemeshWidget* designer = designer_.get();
    QObject::connect(designer, &RulemeshWidget::ShowSourceTablesPopUp, designer,
                     [designer](const QString& tables) { designer->SourceTables(tables); });
    QObject::connect(designer, &RulemeshWidget::ShowConditionBuilderPopUp, designer,
                     [designer](const QString& condition) { designer->PreCondition(condition); });
    QObject::connect(designer, &RulemeshWidget::ShowQueryBuilderPopUp, designer,
                     [designer](const QString& query) { designer->MainQuery(query + QStringLiteral("| built\n")); });
    QObject::connect(designer, &RulemeshWidget::ShowFunctionBuilderPopUp, designer,
                     [designer](const QString& rule) { designer->FieldMapping(rule + QStringLiteral("built()")); });
}

QByteArray WideObject()
{
    constexpr int Fields = 4000;
    QByteArray xml = "<widet101><SRCTBL>wides001</SRCTBL><PREC TEXT=\"\">migrate wides001 | wide\n</PREC>"
                     "<QUERY ST=\"wides001\">dump 1 | all\ndump 2 | none\n</QUERY><SRCTAB><WIDES001>";
    for (int field = 1; field <= Fields; ++field) {
        const QByteArray number = QByteArray::number(field);
        xml += "<F" + number + " FNo=\"" + number + "\" TYPE=\"M\" LENG=\"" + number +
               "\" DSCA=\"&lt;b&gt;Source &amp; " + number + "&lt;/b&gt;\"/>";
    }
    xml += "</WIDES001></SRCTAB><TARTAB><WIDET101>";
    for (int field = 1; field <= Fields; ++field) {
        const QByteArray number = QByteArray::number(field);
        xml += "<F" + number + " No=\"" + number + "\" FNo=\"" + number + "\" TYPE=\"M\" DSCA=\"Target " + number +
               "\" DOMAIN=\"d\"/>";
    }
    xml += "</WIDET101></TARTAB><DUMP No=\"1\" TT=\"widet101\" TXT=\"| all\">";
    for (int field = 1; field <= Fields; field += 3) {
        const QByteArray number = QByteArray::number(field);
        xml += "<F" + number + " TEXT=\"\" TYPE=\"0\">upper(wides001.f" + number + ")&#13;\n+ 1</F" + number + ">";
    }
    return xml + "</DUMP><DUMP No=\"2\" TT=\"widet101\" TXT=\"| none\"/></widet101>";
}

QString RootOf(const QByteArray& object)
{
    qsizetype from = object.indexOf('<');
    while (from >= 0 && from + 1 < object.size() && (object[from + 1] == '?' || object[from + 1] == '!'))
        from = object.indexOf('<', from + 1);
    qsizetype to = from + 1;
    while (to < object.size() && !QByteArray(" \t\r\n/>").contains(object[to]))
        ++to;
    return QString::fromUtf8(object.mid(from + 1, to - from - 1));
}

} // namespace rulemesh::monkey
