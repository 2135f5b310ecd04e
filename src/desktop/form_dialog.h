#pragma once

#include <QDialog>

#include "desktop/view_surface.h"
#include "views/modal_form.h"

namespace rulemesh {

/// A modal form in a window of its own, at least as wide as its title. Escape and closing it from its frame ask what
/// the form asks then.
class FormDialog : public QDialog {
    Q_OBJECT

public:
    FormDialog(ModalForm& form, QWidget* parent);

    [[nodiscard]] ViewSurface& Surface() noexcept { return surface_; }

    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void FollowForm();

    ModalForm& form_;
    QWidget* content_; // owned as a child; holds the views in the middle of the window
    ViewSurface surface_;
};

} // namespace rulemesh
