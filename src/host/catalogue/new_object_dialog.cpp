#include "host/catalogue/new_object_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/case_map.h"
#include "desktop/qt_text.h"
#include "host/catalogue/catalogue_file.h"
#include "host/files/host_error.h"

namespace rulemesh {

NewObjectDialog::NewObjectDialog(QString folder, QWidget* parent)
    : QDialog(parent), folder_(std::move(folder)), path_(new QLineEdit), target_(new QComboBox),
      several_(new QCheckBox(QStringLiteral("&Several target tables: each dump names its own"))),
      choice_(new QListWidget), tables_(new QLabel), complaint_(new QLabel),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(QStringLiteral("New Mapping Object"));
    resize(560, 320);
    LayOut();
    connect(path_, &QLineEdit::editingFinished, this, [this] { UseCatalogue(path_->text()); });
    connect(several_, &QCheckBox::toggled, choice_, &QWidget::setEnabled);
    connect(target_, &QComboBox::currentIndexChanged, this, &NewObjectDialog::KeepTargetTicked);
    connect(buttons_, &QDialogButtonBox::accepted, this, &NewObjectDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ShowTables();
}

void NewObjectDialog::LayOut()
{
    auto* browse = new QPushButton(QStringLiteral("&Browse..."));
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &NewObjectDialog::Browse);
    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(path_, 1);
    pathRow->addWidget(browse);
    path_->setPlaceholderText(QStringLiteral("Another mapping object, or a CSV file"));
    path_->setAccessibleName(QStringLiteral("Catalogue"));
    choice_->setAccessibleName(QStringLiteral("Target tables to choose from"));
    complaint_->setWordWrap(true);
    complaint_->setTextFormat(Qt::PlainText);
    complaint_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* form = new QFormLayout;
    auto* catalogueLabel = new QLabel(QStringLiteral("&Catalogue:"));
    catalogueLabel->setBuddy(path_);
    form->addRow(catalogueLabel, pathRow);
    form->addRow(QString(), tables_);
    form->addRow(QStringLiteral("&Target table:"), target_);
    form->addRow(QString(), several_);
    form->addRow(QString(), choice_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form, 1);
    layout->addWidget(complaint_);
    layout->addWidget(buttons_);
}

void NewObjectDialog::Browse()
{
    const QString path =
        QFileDialog::getOpenFileName(this, QStringLiteral("Choose a Catalogue"), folder_, CatalogueFileFilter());
    if (path.isEmpty())
        return;
    path_->setText(path);
    UseCatalogue(path);
}

void NewObjectDialog::UseCatalogue(const QString& path)
{
    path_->setText(path);
    catalogue_ = {};
    QString wrong;
    try {
        if (!path.isEmpty())
            catalogue_ = ReadCatalogueFile(path);
        if (!path.isEmpty() && catalogue_.Targets.empty())
            wrong = QStringLiteral("This catalogue has no target table. A new object needs one.");
    } catch (const HostError& error) {
        wrong = error.Text();
    }
    ShowTables();
    Complain(wrong);
}

void NewObjectDialog::ShowTables()
{
    target_->clear();
    choice_->clear();
    for (const CatalogueTable& table : catalogue_.Targets) {
        const QString code = ToQt(ToLower(table.Code));
        target_->addItem(code);
        auto* item = new QListWidgetItem(code, choice_);
        item->setCheckState(Qt::Checked);
    }
    const bool any = target_->count() > 0;
    tables_->setText(any ? QStringLiteral("Source tables: %1, target tables: %2")
                               .arg(catalogue_.Sources.size())
                               .arg(catalogue_.Targets.size())
                         : QString());
    target_->setEnabled(any);
    several_->setEnabled(target_->count() > 1);
    if (!several_->isEnabled())
        several_->setChecked(false);
    several_->setVisible(several_->isEnabled());
    choice_->setVisible(several_->isEnabled());
    choice_->setEnabled(several_->isChecked());
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(any);
    KeepTargetTicked();
}

// The object's own table is always among those to choose from.
void NewObjectDialog::KeepTargetTicked()
{
    for (int row = 0; row < choice_->count(); ++row) {
        QListWidgetItem* item = choice_->item(row);
        const bool own = item->text() == target_->currentText();
        if (own)
            item->setCheckState(Qt::Checked);
        item->setFlags(own ? Qt::ItemIsSelectable : Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    }
}

void NewObjectDialog::Complain(const QString& text)
{
    constexpr qsizetype Most = 8;
    const QStringList lines = text.split(u'\n');
    complaint_->setText(lines.first(std::min(lines.size(), Most)).join(u'\n'));
    complaint_->setVisible(!text.isEmpty());
}

NewObjectPlan NewObjectDialog::Plan() const
{
    NewObjectPlan plan{.Target = FromQt(target_->currentText()), .Tables = catalogue_, .TargetChoice = {}};
    for (int row = 0; several_->isChecked() && row < choice_->count(); ++row) {
        if (choice_->item(row)->checkState() == Qt::Checked)
            plan.TargetChoice.push_back(FromQt(choice_->item(row)->text()));
    }
    return plan;
}

void NewObjectDialog::accept()
{
    try {
        object_ = MakeNewObject(Plan());
        QDialog::accept();
    } catch (const HostError& error) {
        Complain(error.Text());
    }
}

} // namespace rulemesh
