#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace rulemesh {

/// The text of a mapping object as it stands in a file, in UTF-8. The designer wants the root element first, so what
/// stands before it is kept apart and put in front again at the save.
struct ObjectText {
    QByteArray Lead;   // byte order mark, declaration, comments and instructions before the root element
    QByteArray Object; // from the root element on

    friend bool operator==(const ObjectText&, const ObjectText&) = default;
};

/// The text of an XML file, whatever encoding it has by its byte order mark or declaration: UTF-8, UTF-16, UTF-32,
/// ISO-8859-1, windows-1252 or ASCII. A declaration of another encoding than UTF-8 is changed to UTF-8.
/// Raises HostError for other encodings, bytes that don't fit the encoding, and a text without a root element.
[[nodiscard]] ObjectText ParseObjectBytes(const QByteArray& bytes);

/// Reads a plain file. Raises HostError as ParseObjectBytes and ReadPlainFile do.
[[nodiscard]] ObjectText ReadObjectFile(const QString& path);

/// Raises HostError for a text that would not load again.
void EnsureLoads(const ObjectText& text);

/// Replaces the file's text as WriteFileAtOnce does, by one that loads again. Raises HostError when that can't be done;
/// the old text stands there then.
void WriteObjectFile(const QString& path, const ObjectText& text);

/// The name of the root element, which is the object's target table.
[[nodiscard]] QString RootName(const QByteArray& object);

/// Raises HostError for what the designer could not work on: malformed XML (told with its line), a document type
/// declaration, a root that is no table code of 8 characters or that no file can be named by, no element PREC.
void CheckObject(const ObjectText& text);

/// What tells that another program has written a file meanwhile.
struct FileStamp {
    qint64 Size = -1; // -1 for no file
    QDateTime Modified;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

[[nodiscard]] FileStamp StampOf(const QString& path);

} // namespace rulemesh
