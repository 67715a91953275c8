#pragma once

#include "exiftool/MetadataReader.h"
#include "exiftool/ReadCommands.h"
#include "tags/OutputParser.h"

#include <filesystem>

namespace exiftool {

/// What a load tells the window about itself. The default does nothing, as the programs without a window
/// want.
class LoadFeedback {
 public:
    virtual ~LoadFeedback() = default;
    virtual void showReading(const std::filesystem::path& file) { static_cast<void>(file); }
    virtual void showSorting() {}
    virtual void hideProgress() {}
    virtual void showStatus(const QString& text) { static_cast<void>(text); }
    virtual void showError(const QString& text) { static_cast<void>(text); }
};

/// Where the rows of a load go: the panel's list, or the output of a program.
class LoadTarget {
 public:
    virtual ~LoadTarget() = default;
    virtual void InsertMetadataRow(tags::MetadataRow&& row) = 0;
    /// After the last row, once for each group whose header shows a count.
    virtual void SetGroupCount(std::uint32_t groupId, int count) = 0;
};

/// The road from a clicked file to rows: read through ExifTool into Metadata.txt, parse, insert, count.
/// Blocks until the tool has ended or its wait was stopped. The caller has emptied the target. GUI thread.
class MetadataLoad {
 public:
    MetadataLoad(const app::AppContext& context, ToolRunner& runner, ReadCommands& commands,
                 tags::OutputParser& parser);

    /// 1, or 0 when the path is empty, the read could not be run or its output not be opened.
    [[nodiscard]] int LoadMetadata(const std::filesystem::path& file, LoadTarget& target,
                                   LoadFeedback& feedback);

    /// The second half, for a read that was made elsewhere: parse, insert, count. The same answer; rows of a
    /// read with a fault are inserted as far as they came.
    [[nodiscard]] int showRead(const MetadataRead& read, LoadTarget& target, LoadFeedback& feedback);

 private:
    const app::AppContext& context_;
    ToolRunner& runner_;
    ReadCommands& commands_;
    tags::OutputParser& parser_;
};

}  // namespace exiftool
