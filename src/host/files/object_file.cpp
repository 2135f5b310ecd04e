#include "host/files/object_file.h"

#include <string>

#include <QFileInfo>
#include <QXmlStreamReader>

#include "document/xml_document.h"
#include "host/files/host_error.h"
#include "host/files/object_encoding.h"
#include "host/files/plain_file.h"
#include "host/files/safe_file.h"
#include "object/control_state.h"

namespace rulemesh {

namespace {

constexpr char Utf8Mark[] = "\xEF\xBB\xBF";
constexpr qsizetype Utf8MarkLength = 3;

// Where the root element begins; -1 for a text without one.
qsizetype RootOffset(const QByteArray& text)
{
    qsizetype at = text.startsWith(Utf8Mark) ? Utf8MarkLength : 0;
    while (at < text.size()) {
        const QByteArrayView rest = QByteArrayView(text).sliced(at);
        qsizetype end = -1; // of the comment or instruction that begins here
        if (rest.startsWith("<?")) {
            end = text.indexOf("?>", at) + 2;
        } else if (rest.startsWith("<!--")) {
            end = text.indexOf("-->", at + 4) + 3;
        } else if (rest.startsWith("<!DOCTYPE")) {
            throw HostError(QStringLiteral("The file has a document type declaration (<!DOCTYPE ...>). A mapping "
                                           "object has none; take it out of the file."));
        } else if (rest.front() == '<') {
            return at;
        } else if (QByteArrayView(" \t\r\n").contains(rest.front())) {
            end = at + 1;
        }
        if (end <= at)
            return -1;
        at = end;
    }
    return -1;
}

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

} // namespace

ObjectText ParseObjectBytes(const QByteArray& bytes)
{
    const QByteArray text = XmlToUtf8(bytes);
    const qsizetype root = RootOffset(text);
    if (root == -1)
        throw HostError(QStringLiteral("The file is no XML: it has no root element."));
    return {text.first(root), text.sliced(root)};
}

ObjectText ReadObjectFile(const QString& path) { return ParseObjectBytes(ReadPlainFile(path)); }

void EnsureLoads(const ObjectText& text)
{
    XmlDocument document;
    if (!document.loadXML(text.Object.toStdString()))
        throw HostError(
            QStringLiteral("The text that was to be written can't be read again, so the file was left as it "
                           "is. %1")
                .arg(Complaint(text)));
}

void WriteObjectFile(const QString& path, const ObjectText& text)
{
    EnsureLoads(text);
    WriteFileAtOnce(path, text.Lead + text.Object);
}

QString RootName(const QByteArray& object)
{
    QXmlStreamReader reader(object);
    reader.setNamespaceProcessing(false);
    return reader.readNextStartElement() ? reader.qualifiedName().toString() : QString();
}

void CheckObject(const ObjectText& text)
{
    XmlDocument document;
    if (!document.loadXML(text.Object.toStdString()))
        throw HostError(Complaint(text));
    const QString root = RootName(text.Object);
    if (root.size() != static_cast<qsizetype>(TableCodeLength))
        throw HostError(QStringLiteral("This is no mapping object: its root element is named \"%1\", but must bear the "
                                       "code of the target table, which has 8 characters such as partn101.")
                            .arg(root));
    if (root.contains(QLatin1String("..")))
        throw HostError(
            QStringLiteral("The root element is named \"%1\". Two dots in a row can't stand in the code of a "
                           "target table, because files are named by it: rename the element.")
                .arg(root));
    if (!document.documentElement().selectSingleNode(u"PREC"))
        throw HostError(QStringLiteral("The object has no element PREC, without which it can't be saved. Add an empty "
                                       "<PREC/> under <%1>.")
                            .arg(root));
}

FileStamp StampOf(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? FileStamp{file.size(), file.lastModified()} : FileStamp{};
}

} // namespace rulemesh
