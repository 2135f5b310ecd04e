#include "host/drafts/recover_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace rulemesh {

namespace {

QString Described(const DraftOrigin& origin)
{
    const QString what = origin.File.isEmpty() ? QStringLiteral("New object %1").arg(origin.Table)
                                               : QDir::toNativeSeparators(origin.File);
    const QString when = QLocale().toString(origin.Written.toLocalTime(), QLocale::ShortFormat);
    return QStringLiteral("%1\nkept %2").arg(what, when);
}

} // namespace

RecoverDialog::RecoverDialog(std::vector<DraftStore::Orphan> orphans, QWidget* parent)
    : QDialog(parent), orphans_(std::move(orphans)), list_(new QListWidget)
{
    setWindowTitle(QStringLiteral("Recover Unsaved Changes"));
    resize(560, 300);
    auto* label = new QLabel(QStringLiteral("Rulemesh ended without saving these changes. Your files are as you saved "
                                            "them last; what you recover is not in its file until you save it."));
    label->setWordWrap(true);
    list_->setAccessibleName(QStringLiteral("Drafts"));
    list_->setAlternatingRowColors(true);
    for (const DraftStore::Orphan& orphan : orphans_)
        list_->addItem(Described(orphan.Origin));
    list_->setCurrentRow(0);

    auto* buttons = new QDialogButtonBox;
    QPushButton* recover = buttons->addButton(QStringLiteral("&Recover"), QDialogButtonBox::AcceptRole);
    QPushButton* discard = buttons->addButton(QStringLiteral("&Discard"), QDialogButtonBox::DestructiveRole);
    QPushButton* later = buttons->addButton(QStringLiteral("&Later"), QDialogButtonBox::RejectRole);
    recover->setDefault(true);
    connect(recover, &QPushButton::clicked, this, [this] { Choose(Choice::Recover); });
    connect(discard, &QPushButton::clicked, this, [this] { Choose(Choice::Discard); });
    connect(later, &QPushButton::clicked, this, [this] { Choose(Choice::Later); });
    connect(list_, &QListWidget::itemActivated, this, [this] { Choose(Choice::Recover); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list_, 1);
    layout->addWidget(buttons);
}

const DraftStore::Orphan& RecoverDialog::Chosen() const
{
    return orphans_.at(static_cast<std::size_t>(std::max(list_->currentRow(), 0)));
}

void RecoverDialog::Choose(Choice choice)
{
    answer_ = choice;
    accept();
}

} // namespace rulemesh
