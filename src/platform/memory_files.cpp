#include "platform/memory_files.h"

#include "base/failure.h"

namespace rulemesh {

void MemoryFiles::Write(TextView StrPath, std::string_view bytes)
{
    FailIfDue(StrPath);
    Put(StrPath, bytes);
}

void MemoryFiles::Put(TextView StrPath, std::string_view bytes)
{
    contents_.insert_or_assign(Text(StrPath), std::string(bytes));
}

std::string MemoryFiles::Read(TextView StrPath)
{
    FailIfDue(StrPath);
    const auto file = contents_.find(StrPath);
    if (file == contents_.end())
        throw Failure(FailureCode::FileNotFound, u"File not found: " + Text(StrPath));
    return file->second;
}

void MemoryFiles::FailIfDue(TextView StrPath)
{
    if (failuresDue_ == 0)
        return;
    --failuresDue_;
    throw Failure(FailureCode::PathFileAccess, u"Path/File access error: " + Text(StrPath));
}

} // namespace rulemesh
