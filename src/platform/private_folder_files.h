#pragma once

#include <string>
#include <string_view>

#include "platform/text_files.h"

namespace rulemesh {

/// Temporary files in a folder of the file system that nobody but the user can enter.
///
/// Write makes the folder when it is missing. A folder that is a symbolic link, no folder, somebody else's or open to
/// others is refused with PathFileAccess, and so is a path that doesn't name a file directly in the folder: part of
/// the name comes from the document. Links and files that aren't the user's own are never followed or overwritten.
/// A missing parent of the folder raises PathNotFound.
class PrivateFolderFiles : public TextFiles {
public:
    /// In `rulemesh-` and the user's number, in the system's temporary folder.
    explicit PrivateFolderFiles(CodePage page = CodePage::Windows1252);

    /// In a folder that the host names.
    explicit PrivateFolderFiles(TextView StrFolder, CodePage page = CodePage::Windows1252);

    [[nodiscard]] Text Folder() const override { return folder_; }
    [[nodiscard]] CodePage Page() const override { return page_; }
    void Write(TextView StrPath, std::string_view bytes) override;
    [[nodiscard]] std::string Read(TextView StrPath) override;

private:
    [[nodiscard]] std::string NameIn(TextView StrPath) const;
    [[nodiscard]] std::string FolderWithoutSeparator() const;

    Text folder_;
    CodePage page_;
};

} // namespace rulemesh
