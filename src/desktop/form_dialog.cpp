#include "desktop/form_dialog.h"

#include <algorithm>

#include <QCloseEvent>

#include "desktop/box_titles.h"
#include "desktop/qt_text.h"

namespace rulemesh {

FormDialog::FormDialog(ModalForm& form, QWidget* parent)
    : QDialog(parent), form_(form), content_(new QWidget(this)), surface_(form.Tree, *content_)
{
    setWindowTitle(ToQt(form.Caption()));
    QFont font = this->font();
    font.setPointSizeF(Font().Size);
    setFont(font);
    setFixedSize(std::max(surface_.Pixels(form.Width()), WidthForTitle(*this, windowTitle())),
                 surface_.Pixels(form.Height()));
    QRect taken;
    for (const View* view : form.Tree.Views()) {
        if (view->IsShown())
            taken |= surface_.WidgetOf(*view).geometry();
    }
    content_->resize(size());
    content_->move(rect().center() - taken.center());
    surface_.OnActed = [this] { FollowForm(); };
    const std::vector<View*>& views = form.Tree.Views();
    const auto first = std::find_if(views.begin(), views.end(),
                                    [](const View* view) { return view->TakesFocus() && view->CanBeReached(); });
    if (first != views.end())
        surface_.FocusFor(**first);
}

void FormDialog::FollowForm()
{
    if (!form_.IsOpen())
        done(QDialog::Accepted);
}

void FormDialog::reject()
{
    surface_.Act([this] { form_.UserCloses(); });
}

void FormDialog::closeEvent(QCloseEvent* event)
{
    if (form_.IsOpen())
        surface_.Act([this] { form_.UserCloses(); });
    event->accept();
}

bool FormDialog::focusNextPrevChild(bool next) { return surface_.MoveFocusByTab(next, ViewSurface::AtTheEnd::GoRound); }

} // namespace rulemesh
