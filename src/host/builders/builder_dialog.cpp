#include "host/builders/builder_dialog.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include "desktop/qt_text.h"
#include "host/reading/script_statements.h"

namespace rulemesh {

BuilderDialog::BuilderDialog(const QString& title, const QString& text, const QString& boxName, QWidget* parent)
    : QDialog(parent), sides_(new QSplitter(this)), box_(new QPlainTextEdit)
{
    setWindowTitle(title);
    resize(900, 560);
    box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    box_->setLineWrapMode(QPlainTextEdit::NoWrap);
    box_->setAccessibleName(boxName);
    box_->setPlainText(text);
    box_->moveCursor(QTextCursor::End);
    before_ = Raw();

    auto* right = new QWidget;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins({});
    auto* label = new QLabel(boxName);
    label->setBuddy(box_);
    rightLayout->addWidget(label);
    rightLayout->addWidget(box_);
    sides_->addWidget(right);
    sides_->setChildrenCollapsible(false);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sides_, 1);
    layout->addWidget(buttons);
}

void BuilderDialog::Pickers(QWidget& pickers)
{
    sides_->insertWidget(0, &pickers);
    sides_->setSizes({360, 540});
}

// Not toPlainText, which makes blanks of no-break spaces.
QString BuilderDialog::Raw() const { return box_->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'); }

bool BuilderDialog::IsChanged() const { return Raw() != before_; }

QString BuilderDialog::Text() const { return Raw().replace(u'\n', QStringLiteral("\r\n")); }

void BuilderDialog::InsertName(const QString& name)
{
    box_->insertPlainText(name);
    box_->setFocus();
}

void BuilderDialog::InsertStatement(const QString& statement)
{
    const auto caret = static_cast<std::size_t>(box_->textCursor().position());
    const Insertion made = InsertLine(FromQt(Raw()), caret, FromQt(statement));
    QTextCursor cursor = box_->textCursor();
    cursor.beginEditBlock(); // one step of undo
    cursor.select(QTextCursor::Document);
    cursor.insertText(ToQt(made.Script));
    cursor.setPosition(static_cast<int>(made.Caret));
    cursor.endEditBlock();
    box_->setTextCursor(cursor);
    box_->setFocus();
}

} // namespace rulemesh
