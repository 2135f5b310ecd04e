#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/text_files.h"

namespace rulemesh {

/// Temporary files that live in memory, in a folder that reads the same on every machine.
class MemoryFiles : public TextFiles {
public:
    explicit MemoryFiles(CodePage page = CodePage::Windows1252) : page_(page) {}

    [[nodiscard]] Text Folder() const override { return u"C:\\Temp\\"; }
    [[nodiscard]] CodePage Page() const override { return page_; }
    void Write(TextView StrPath, std::string_view bytes) override;
    [[nodiscard]] std::string Read(TextView StrPath) override;

    /// Stores a file as another program does: without failing.
    void Put(TextView StrPath, std::string_view bytes);

    /// Lets the next Write or Read fail with PathFileAccess. Called again before that, the one behind it fails too.
    void FailNext() noexcept { ++failuresDue_; }

    /// Every file's bytes by its path.
    [[nodiscard]] const std::map<Text, std::string, std::less<>>& Contents() const noexcept { return contents_; }

private:
    void FailIfDue(TextView StrPath);

    CodePage page_;
    std::map<Text, std::string, std::less<>> contents_;
    int failuresDue_ = 0;
};

} // namespace rulemesh
