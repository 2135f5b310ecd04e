#pragma once

#include <string>

#include "files/file_error.h"
#include "files/object_encoding.h"

namespace rulemesh {

/// A mapping object as it stands in a file. The designer wants the root element first, so what stands before it is kept
/// apart and put in front again at the save.
struct ObjectInFile {
    std::string Lead;   ///< byte order mark of UTF-8, declaration, comments and instructions before the root element
    std::string Object; ///< from the root element on, in UTF-8
    XmlEncoding Encoding = XmlEncoding::Utf8;
    bool HasMark = false; ///< of UTF-16 and UTF-32
};

/// A text that is not well-formed XML, told with the line of the first fault.
class MalformedXml : public FileError {
public:
    using FileError::FileError;
};

/// The object in the bytes of an XML file, whatever encoding it has by its byte order mark or declaration: UTF-8,
/// UTF-16, UTF-32, ISO-8859-1, windows-1252 or ASCII. Raises FileError for other encodings, bytes that don't fit the
/// encoding, and a text without a root element.
[[nodiscard]] ObjectInFile ParseObject(std::string bytes);

/// Reads a plain file. Raises FileError as ParseObject and ReadPlainFile do.
[[nodiscard]] ObjectInFile ReadObject(const std::string& path);

/// Raises FileError for what the designer could not work on: malformed XML (MalformedXml), a document type declaration,
/// a root that is no table code of 8 characters or that no file can be named by, no element PREC.
void CheckObject(const ObjectInFile& file);

/// Raises MalformedXml for a text that would not load again.
void EnsureLoads(const ObjectInFile& file);

/// Replaces the file as WriteFileAtOnce does, by a text that loads again. Raises FileError when that can't be done; the
/// old text stands there then.
void WriteObject(const std::string& path, const ObjectInFile& file);

/// The name of the root element with which the object begins, which is its target table; "" for no element.
[[nodiscard]] std::string RootNameOf(const std::string& object);

} // namespace rulemesh
