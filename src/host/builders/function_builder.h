#pragma once

#include <string>

#include <QStringList>

#include "host/builders/builder_dialog.h"

class QListWidget;

namespace rulemesh {

class TableTree;

/// Builds the rule of one target field from fields of the source tables and from function names.
class FunctionBuilder : public BuilderDialog {
    Q_OBJECT

public:
    /// `field` is the target field, `rule` its rule as it stands, `object` the whole object as it stands (UTF-8).
    FunctionBuilder(const QString& field, const QString& rule, const QStringList& tables, const std::string& object,
                    QWidget* parent);

    [[nodiscard]] TableTree& Tables() noexcept { return *tables_; }
    [[nodiscard]] QListWidget& Functions() noexcept { return *functions_; }

    /// Puts a call of a function around what is selected, or in at the caret with the caret between the brackets.
    void InsertCall(const QString& function);

private:
    TableTree* tables_;
    QListWidget* functions_;
};

} // namespace rulemesh
