#pragma once

#include "platform/private_folder_files.h"

namespace rulemesh {

/// The application's temporary files: in a folder of the user's own below his cache, where nobody else can be in the
/// way.
class ApplicationFiles : public PrivateFolderFiles {
public:
    ApplicationFiles();

    /// Never fails: the object is saved whether or not there is room for the copy of it.
    void WriteCopy(TextView StrPath, std::string_view bytes) override;
};

} // namespace rulemesh
