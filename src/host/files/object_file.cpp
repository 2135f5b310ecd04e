#include "host/files/object_file.h"

#include <QFileInfo>
#include <QXmlStreamReader>

#include "files/object_file.h"
#include "host/files/file_names.h"
#include "host/files/safe_file.h"

namespace rulemesh {

namespace {

// What is wrong with a text that the designer refused, with the line in the file.
QString Complaint(const ObjectText& text)
{
    QXmlStreamReader reader(text.Object);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return QStringLiteral("The file is not well-formed XML.");
    return QStringLiteral("The file is not well-formed XML. Line %1: %2")
        .arg(reader.lineNumber() + text.Lead.count('\n'))
        .arg(reader.errorString());
}

ObjectText Taken(ObjectInFile file)
{
    return {QByteArray::fromStdString(DeclaredAsUtf8(std::move(file.Lead))), QByteArray::fromStdString(file.Object)};
}

ObjectInFile Given(const ObjectText& text) { return {text.Lead.toStdString(), text.Object.toStdString()}; }

} // namespace

ObjectText ParseObjectBytes(const QByteArray& bytes)
{
    return Told([&] { return Taken(ParseObject(bytes.toStdString())); });
}

ObjectText ReadObjectFile(const QString& path)
{
    return Told([&] { return Taken(ReadObject(FileName(path))); });
}

void EnsureLoads(const ObjectText& text)
{
    try {
        EnsureLoads(Given(text));
    } catch (const MalformedXml&) {
        throw HostError(
            QStringLiteral("The text that was to be written can't be read again, so the file was left as it "
                           "is. %1")
                .arg(Complaint(text)));
    }
}

void WriteObjectFile(const QString& path, const ObjectText& text)
{
    EnsureLoads(text);
    WriteFileAtOnce(path, text.Lead + text.Object);
}

QString RootName(const QByteArray& object) { return QString::fromUtf8(RootNameOf(object.toStdString())); }

void CheckObject(const ObjectText& text)
{
    Told([&] {
        try {
            CheckObject(Given(text));
        } catch (const MalformedXml&) {
            throw HostError(Complaint(text)); // the toolkit's reader knows more about the fault
        }
    });
}

FileStamp StampOf(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? FileStamp{file.size(), file.lastModified()} : FileStamp{};
}

} // namespace rulemesh
