#include "drive/object_requests.h"

#include <utility>

#include "base/failure.h"
#include "base/utf8.h"
#include "files/object_file.h"
#include "files/safe_file.h"

namespace rulemesh {

namespace {

std::string FileOf(const Request& request)
{
    std::string file = ToUtf8(request.TextMember("file"));
    if (file.empty() || file.find('\0') != std::string::npos)
        throw Refusal("\"file\" must be the name of a file");
    return file;
}

// All that can be wrong with a file is found before anything changes.
ObjectInFile ObjectFrom(const std::string& path)
{
    try {
        SweepLeftovers(path);
        if (const std::string copy = CopyOfCutShortSave(path); !copy.empty())
            throw FileError("the last save of " + path +
                            " may have been cut short: the whole text from before it stands "
                            "in " +
                            copy + "; put the one that you want there under the file's name and take the other away");
        ObjectInFile object = ReadObject(path);
        CheckObject(object);
        return object;
    } catch (const FileError& error) {
        throw Refusal(error.what());
    }
}

} // namespace

Json LoadObject(Desk& desk, const Request& request)
{
    const std::string path = FileOf(request);
    const bool edit = !request.Has("edit") || request.Flag("edit");
    ObjectInFile file = ObjectFrom(path);
    ctlRulemesh& control = desk.Control();
    control.TargetTable(FromUtf8(RootNameOf(file.Object)));
    control.Edit(edit);
    control.MappingObjectXML(std::exchange(file.Object, {}));
    desk.File() = std::move(file);
    control.ShowControl();
    return nullptr;
}

Json SaveObject(Desk& desk, const Request& request)
{
    const std::string path = FileOf(request);
    const QuietFiles quiet(desk.Platform());
    ObjectInFile file = desk.File();
    file.Object = desk.Control().MappingObjectXmlUtf8();
    try {
        WriteObject(path, file);
    } catch (const FileError& error) {
        throw Failure(FailureCode::PathFileAccess, FromUtf8(error.what()));
    }
    return nullptr;
}

} // namespace rulemesh
