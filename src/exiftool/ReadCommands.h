#pragma once

#include "app/AppContext.h"
#include "exiftool/LineParts.h"
#include "exiftool/ToolRunner.h"
#include "platform/CommandText.h"

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace exiftool {

/// What the reads tell the window about themselves. The default does nothing, as the programs without a
/// window want.
class ReadFeedback {
 public:
    virtual ~ReadFeedback() = default;
    virtual void showStatus(const QString& text) { static_cast<void>(text); }
    virtual void beginWait() {}  ///< wait cursor on
    virtual void endWait() {}    ///< and off again
};

/// The command texts, as the reads run them. Exact to the blank; separate from the running so that they can
/// be compared.
platform::CommandText panelReadCommand(const app::AppContext& context, app::CommandForm form,
                                       const std::filesystem::path& file,
                                       const std::filesystem::path& output);
platform::CommandText groupAllCommand(const app::AppContext& context, app::CommandForm form,
                                      const std::filesystem::path& file, const std::filesystem::path& output,
                                      std::string_view groupName);
platform::CommandText categoryCommand(const app::AppContext& context, app::CommandForm form,
                                      const std::filesystem::path& file, const std::filesystem::path& output,
                                      int categoryId);
platform::CommandText oneValueCommand(const app::AppContext& context, app::CommandForm form,
                                      const std::filesystem::path& file, const std::filesystem::path& output,
                                      std::string_view tagName, bool numeric);
platform::CommandText gpsPositionCommand(const app::AppContext& context, const std::filesystem::path& file,
                                         const std::filesystem::path& output);
platform::CommandText dumpHtmlCommand(const app::AppContext& context, const std::filesystem::path& file,
                                      const std::filesystem::path& output);
platform::CommandText dumpVerboseCommand(const app::AppContext& context, const std::filesystem::path& file,
                                         const std::filesystem::path& output);
/// fileArgument and output are put in as the caller quoted them.
platform::CommandText exportValuesCommand(const app::AppContext& context, app::CommandForm form,
                                          const platform::CommandText& fileArgument,
                                          const platform::CommandText& output,
                                          const platform::CommandText& extraArguments);

/// Everything the program asks ExifTool about a file: each a run of its own, the answer in a file. GUI
/// thread; each call blocks until the tool has ended or the runner's wait was stopped.
class ReadCommands {
 public:
    ReadCommands(const app::AppContext& context, ToolRunner& runner, ReadFeedback& feedback);

    /// 1 when the batch file was written and run, else 0. An empty path gives 0 and no batch file.
    [[nodiscard]] int ReadForPanel(const std::filesystem::path& file, const std::filesystem::path& output,
                                   bool showStatus);
    [[nodiscard]] int ReadGroupAll(const std::filesystem::path& file, const std::filesystem::path& output,
                                   std::string_view groupName);
    [[nodiscard]] int ReadCategory(const std::filesystem::path& file, const std::filesystem::path& output,
                                   int categoryId);
    /// The value as text, or empty.
    QString ReadOneValue(const std::filesystem::path& file, std::string_view tagName, bool numeric);
    [[nodiscard]] int ReadGpsPosition(const std::filesystem::path& file, const std::filesystem::path& output);
    [[nodiscard]] int DumpHtml(const std::filesystem::path& file, const std::filesystem::path& output);
    [[nodiscard]] int DumpVerbose(const std::filesystem::path& file, const std::filesystem::path& output);
    [[nodiscard]] int ExportValues(const platform::CommandText& fileArgument,
                                   const platform::CommandText& output,
                                   const platform::CommandText& extraArguments);

 private:
    app::CommandForm form() const { return app::commandFormOf(context_); }
    int runNamedAfter(const std::filesystem::path& file, const platform::CommandText& command);

    const app::AppContext& context_;
    ToolRunner& runner_;
    ReadFeedback& feedback_;
};

}  // namespace exiftool
