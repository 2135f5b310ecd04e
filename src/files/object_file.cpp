#include "files/object_file.h"

#include <algorithm>

#include "base/utf8.h"
#include "document/xml_document.h"
#include "document/xml_parser.h"
#include "files/plain_file.h"
#include "files/safe_file.h"
#include "object/control_state.h"

namespace rulemesh {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// Where the root element begins; npos for a text without one.
std::size_t RootOffset(std::string_view text)
{
    std::size_t at = text.starts_with(Utf8Mark) ? Utf8Mark.size() : 0;
    while (at < text.size()) {
        const std::string_view rest = text.substr(at);
        const auto behind = [&](std::string_view ending, std::size_t from) {
            const std::size_t found = rest.find(ending, from);
            return found == std::string_view::npos ? 0 : found + ending.size();
        };
        std::size_t length = 0; // of the comment or instruction that begins here
        if (rest.starts_with("<?")) {
            length = behind("?>", 2);
        } else if (rest.starts_with("<!--")) {
            length = behind("-->", 4);
        } else if (rest.starts_with("<!DOCTYPE")) {
            throw FileError(
                "The file has a document type declaration (<!DOCTYPE ...>). A mapping object has none; take "
                "it out of the file.");
        } else if (rest.front() == '<') {
            return at;
        } else if (std::string_view(" \t\r\n").find(rest.front()) != std::string_view::npos) {
            length = 1;
        }
        if (length == 0)
            return std::string_view::npos;
        at += length;
    }
    return std::string_view::npos;
}

std::string Complaint(const ObjectInFile& file)
{
    const std::string_view object = file.Object;
    const std::size_t fault = std::min(xml::FaultIn(object), object.size());
    const auto lines = std::count(file.Lead.begin(), file.Lead.end(), '\n') +
                       std::count(object.begin(), object.begin() + static_cast<std::ptrdiff_t>(fault), '\n');
    return "The file is not well-formed XML: line " + std::to_string(lines + 1) + " can't be read.";
}

void Load(XmlDocument& document, const ObjectInFile& file)
{
    if (!document.loadXML(file.Object))
        throw MalformedXml(Complaint(file));
}

} // namespace

ObjectInFile ParseObject(std::string bytes)
{
    DecodedXml xml = DecodeXml(std::move(bytes));
    const std::size_t root = RootOffset(xml.Text);
    if (root == std::string_view::npos)
        throw FileError("The file is no XML: it has no root element.");
    std::string lead = xml.Text.substr(0, root);
    xml.Text.erase(0, root);
    return {std::move(lead), std::move(xml.Text), xml.Encoding, xml.HasMark};
}

ObjectInFile ReadObject(const std::string& path) { return ParseObject(ReadPlainFile(path)); }

void CheckObject(const ObjectInFile& file)
{
    XmlDocument document;
    Load(document, file);
    const std::string root = RootNameOf(file.Object);
    if (FromUtf8(root).size() != TableCodeLength)
        throw FileError("This is no mapping object: its root element is named \"" + root +
                        "\", but must bear the code of the target table, which has 8 characters such as partn101.");
    if (root.find("..") != std::string::npos)
        throw FileError("The root element is named \"" + root +
                        "\". Two dots in a row can't stand in the code of a target table, because files are named by "
                        "it: rename the element.");
    if (!document.documentElement().selectSingleNode(u"PREC"))
        throw FileError(
            "The object has no element PREC, without which it can't be saved. Add an empty <PREC/> under <" + root +
            ">.");
}

void EnsureLoads(const ObjectInFile& file)
{
    XmlDocument document;
    Load(document, file);
}

void WriteObject(const std::string& path, const ObjectInFile& file)
{
    EnsureLoads(file);
    WriteFileAtOnce(path, EncodeXml({file.Lead + file.Object, file.Encoding, file.HasMark}));
}

std::string RootNameOf(const std::string& object)
{
    if (!object.starts_with('<'))
        return {};
    return object.substr(1, std::min(object.find_first_of(" \t\r\n/>"), object.size()) - 1);
}

} // namespace rulemesh
