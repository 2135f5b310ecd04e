#include "host/catalogue/catalogue_file.h"

#include <QFileInfo>

#include "host/catalogue/catalogue_csv.h"
#include "host/files/host_error.h"
#include "host/files/object_file.h"
#include "host/files/plain_file.h"

namespace rulemesh {

Catalogue ReadCatalogueFile(const QString& path)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("csv"), Qt::CaseInsensitive) == 0)
        return ReadCatalogueCsv(ReadPlainFile(path));
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
