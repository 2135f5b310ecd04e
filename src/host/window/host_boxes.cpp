#include "host/window/host_boxes.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace rulemesh {

namespace {

constexpr qsizetype LinesInSight = 6;

void Tell(QMessageBox& box, const QString& what, const QString& why)
{
    box.setTextFormat(Qt::PlainText);
    box.setText(what);
    const QStringList lines = why.split(u'\n');
    box.setInformativeText(lines.first(std::min(lines.size(), LinesInSight)).join(u'\n'));
    for (QLabel* label : box.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText); // the box itself sees to its first text alone
    if (lines.size() > LinesInSight)
        box.setDetailedText(why);
}

} // namespace

void TellProblem(QWidget* parent, const QString& what, const QString& why)
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Rulemesh"), {}, QMessageBox::Ok, parent);
    Tell(box, what, why);
    box.exec();
}

SaveAnswer AskAboutChanges(QWidget* parent, const QString& name, bool maySave)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Rulemesh"), {}, QMessageBox::Discard | QMessageBox::Cancel,
                    parent);
    if (maySave) {
        Tell(box, QStringLiteral("Save the changes to %1?").arg(name), QStringLiteral("What you don't save is lost."));
        box.setDefaultButton(box.addButton(QMessageBox::Save));
    } else {
        Tell(box, QStringLiteral("%1 has changes, and a panel with text is open.").arg(name),
             QStringLiteral("To save, cancel here and close the panel with its button OK or Cancel first."));
        box.setDefaultButton(QMessageBox::Cancel);
    }
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Save:
        return SaveAnswer::Save;
    case QMessageBox::Discard:
        return SaveAnswer::Discard;
    default:
        return SaveAnswer::Cancel;
    }
}

bool AskToGoOn(QWidget* parent, const QString& what, const QString& why, const QString& button)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Rulemesh"), {}, QMessageBox::Cancel, parent);
    Tell(box, what, why);
    const QPushButton* goOn = box.addButton(button, QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == goOn;
}

} // namespace rulemesh
