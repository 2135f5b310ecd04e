#pragma once

#include <QObject>
#include <QString>

namespace rulemesh {

class RulemeshWidget;

/// Answers the events by which the designer asks for builders. A builder comes up when the click that asked for it has
/// ended, over the designer's window, and sets the property only when the user changed something.
class Builders : public QObject {
    Q_OBJECT

public:
    /// The widget must outlive this.
    explicit Builders(RulemeshWidget& widget);

    void BuildSourceTables(const QString& i_SourceTables);
    void BuildCondition(const QString& i_ConditionString, const QString& i_SourceTables);
    void BuildQuery(const QString& i_QueryString, const QString& i_SourceTables);
    void BuildFunction(const QString& StrCondition, const QString& StrSourceTables);

private:
    /// Puts the tables that a precondition migrates and the catalogue knows into the list of source tables.
    void ListMigrated(const QString& script);

    RulemeshWidget& widget_;
};

} // namespace rulemesh
