#include "host/catalogue_file.h"

#include <QFile>
#include <QFileInfo>

#include "host/catalogue_csv.h"
#include "host/host_error.h"
#include "host/object_file.h"

namespace rulemesh {

Catalogue ReadCatalogueFile(const QString& path)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("csv"), Qt::CaseInsensitive) == 0) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw HostError(QStringLiteral("%1 can't be opened: %2.").arg(path, file.errorString()));
        return ReadCatalogueCsv(file.readAll());
    }
    const ObjectText text = ReadObjectFile(path);
    CheckObject(text);
    Catalogue catalogue = CatalogueOf(text.Object.toStdString());
    if (catalogue.Sources.empty() && catalogue.Targets.empty())
        throw HostError(
            QStringLiteral("The object %1 describes no tables. Choose another one, or a CSV file.").arg(path));
    return catalogue;
}

QString CatalogueFileFilter()
{
    return QStringLiteral("Catalogues (*.csv *.xml *.rulemesh);;CSV files (*.csv);;Mapping objects (*.xml *.rulemesh);;"
                          "All files (*)");
}

} // namespace rulemesh
