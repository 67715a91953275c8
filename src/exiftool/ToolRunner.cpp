#include "exiftool/ToolRunner.h"

#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

constexpr const char* kCommonBatchFile = "Metadata.bat";

bool writeBatchFile(const fs::path& file, const std::string& line) {
    const platform::FileDescriptor descriptor(
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    return descriptor.isOpen() && platform::writeAll(descriptor.get(), line) == 0;
}

}  // namespace

ToolRunner::ToolRunner(const app::AppContext& context) : context_(context) {}

void ToolRunner::setKeepWaiting(KeepWaiting keepWaiting) {
    keepWaiting_ = std::move(keepWaiting);
}

int ToolRunner::RunToolLine(const platform::CommandText& command) {
    return run(context_.tempPath / kCommonBatchFile, command);
}

int ToolRunner::RunBatchFile(const fs::path& batchFile, const platform::CommandText& command) {
    const int result = run(batchFile, command);
    std::error_code ignored;
    fs::remove(batchFile, ignored);
    return result;
}

int ToolRunner::run(const fs::path& batchFile, const platform::CommandText& command) {
    outcome_ = {};
    if (!writeBatchFile(batchFile, command.text())) return 0;
    const auto typed = context_.settings.exifTool.correctedCommands ? platform::TypedPieces::StayInside
                                                                    : platform::TypedPieces::AsTheyStand;
    const platform::CommandInterpreter interpreter(
        {context_.exifToolPath, context_.ffmpegPath, context_.imageMagickPath}, typed);
    outcome_ = interpreter.run(command, keepWaiting_);
    return outcome_.everyToolStarted() && !outcome_.wasStopped() ? 1 : 0;
}

}  // namespace exiftool
