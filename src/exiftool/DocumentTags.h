#pragma once

#include "exiftool/ToolConversation.h"
#include "properties/TagSource.h"

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace exiftool {

/// An ExifTool in the background that tells the columns of the list what documents hold. It is started at the
/// first question, stays for the next ones, and is started anew when it has died, or when it did not answer
/// within a limit and so was ended. Questions of several threads are answered one after the other. It ends
/// with the object, and with the thread that asked first; the next question starts another.
class DocumentTags : public properties::TagSource {
 public:
    explicit DocumentTags(std::filesystem::path exifTool) : exifTool_(std::move(exifTool)) {}

    properties::FileTags tagsOf(const std::filesystem::path& file) override;

 private:
    std::optional<std::string> ask(std::string_view fileArgument);

    const std::filesystem::path exifTool_;
    std::mutex asking_;
    std::optional<ToolConversation> tool_;
    unsigned lastNumber_ = 0;
};

}  // namespace exiftool
