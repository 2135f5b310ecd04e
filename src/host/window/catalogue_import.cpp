#include "host/window/catalogue_import.h"

#include <QFileDialog>
#include <QFileInfo>

#include "desktop/qt_text.h"
#include "host/catalogue/catalogue_file.h"
#include "host/files/host_error.h"
#include "host/settings/settings.h"
#include "host/window/current_object.h"
#include "host/window/host_boxes.h"

namespace rulemesh {

namespace {

QString TablesOf(const std::vector<CatalogueTable>& tables)
{
    constexpr qsizetype Most = 12;
    QStringList codes;
    for (const CatalogueTable& table : tables)
        codes += ToQt(table.Code);
    const qsizetype more = codes.size() - Most;
    return more <= 0 ? codes.join(QStringLiteral(", "))
                     : QStringLiteral("%1 and %2 more").arg(codes.first(Most).join(QStringLiteral(", "))).arg(more);
}

QString WhatAnImportDoes(const Catalogue& own, const Catalogue& imported)
{
    std::vector<CatalogueTable> replaced;
    std::vector<CatalogueTable> added;
    const auto sort = [&](const auto& tables, const auto& known) {
        for (const CatalogueTable& table : tables)
            (FindTable(known, table.Code) == nullptr ? added : replaced).push_back(table);
    };
    sort(imported.Sources, own.Sources);
    sort(imported.Targets, own.Targets);
    QStringList told;
    if (!added.empty())
        told += QStringLiteral("Added: %1.").arg(TablesOf(added));
    if (!replaced.empty())
        told += QStringLiteral("Replaced: %1. Rules of fields that they no longer have stay in the object unseen.")
                    .arg(TablesOf(replaced));
    return told.join(u'\n');
}

} // namespace

CatalogueImport::CatalogueImport(CurrentObject& current, const Settings& settings, QWidget& window)
    : current_(current), settings_(settings), window_(window)
{
}

void CatalogueImport::Ask()
{
    if (current_.Object() != nullptr && !current_.MaySaveNow(QStringLiteral("A catalogue can't be imported now.")))
        return;
    const QString path = QFileDialog::getOpenFileName(&window_, QStringLiteral("Import Catalogue"), settings_.Folder(),
                                                      CatalogueFileFilter());
    if (!path.isEmpty())
        Import(path);
}

void CatalogueImport::Import(const QString& path)
{
    if (!current_.MayEdit() || !current_.Object()->MaySave()) {
        TellProblem(&window_, QStringLiteral("A catalogue can't be imported now."),
                    QStringLiteral("Open an object that you may change first, and close an open panel with its OK or "
                                   "Cancel. New makes an object from a catalogue."));
        return;
    }
    OpenObject& object = *current_.Object();
    try {
        const Catalogue catalogue = ReadCatalogueFile(path);
        const Catalogue own = CatalogueOf(object.AsItStands().Object.toStdString());
        if (!AskToGoOn(&window_, QStringLiteral("Import the tables of %1?").arg(QFileInfo(path).fileName()),
                       WhatAnImportDoes(own, catalogue), QStringLiteral("&Import")))
            return;
        std::optional<ObjectText> text = object.TextToSave();
        if (!text)
            return;
        text->Object = QByteArray::fromStdString(WithCatalogue(text->Object.toStdString(), catalogue));
        current_.Change(*text);
    } catch (const HostError& error) {
        TellProblem(&window_, QStringLiteral("%1 was not imported.").arg(QFileInfo(path).fileName()), error.Text());
    }
}

} // namespace rulemesh
