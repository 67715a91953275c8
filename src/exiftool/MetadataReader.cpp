#include "exiftool/MetadataReader.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "exiftool/ReadCommands.h"
#include "exiftool/ToolRunner.h"
#include "platform/ProcessFolder.h"
#include "platform/Text.h"

#include <QMetaObject>
#include <system_error>
#include <utility>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

constexpr const char* kOutput = "Metadata.txt";
constexpr const char* kFolder = "panel";

app::AppContext contextOfPanel(const app::AppContext& context) {
    app::AppContext own = context;
    own.tempPath = context.tempPath / kFolder;
    return own;
}

}  // namespace

MetadataReader::MetadataReader(const app::AppContext& context, QObject* parent)
    : QObject(parent), context_(context) {}

MetadataReader::~MetadataReader() {
    {
        const std::scoped_lock lock(guard_);
        isEnding_ = true;
        wanted_ = 0;
        next_.reset();
    }
    wake_.notify_all();
    if (thread_.joinable()) thread_.join();
}

void MetadataReader::request(const fs::path& file, Answer answer) {
    answer_ = std::move(answer);
    if (!thread_.joinable()) thread_ = std::thread([this] { work(); });
    {
        const std::scoped_lock lock(guard_);
        wanted_ = ++lastNumber_;
        isStopped_ = false;
        next_ = Request{lastNumber_, file, contextOfPanel(context_)};
    }
    wake_.notify_all();
}

void MetadataReader::stop() {
    const std::scoped_lock lock(guard_);
    isStopped_ = true;
}

void MetadataReader::cancel() {
    answer_ = nullptr;
    const std::scoped_lock lock(guard_);
    wanted_ = 0;
    next_.reset();
}

bool MetadataReader::isWanted(std::uint64_t number) {
    const std::scoped_lock lock(guard_);
    return number == wanted_ && !isStopped_;
}

void MetadataReader::work() {
    for (;;) {
        std::optional<Request> request;
        {
            std::unique_lock lock(guard_);
            wake_.wait(lock, [this] { return isEnding_ || next_.has_value(); });
            if (isEnding_) return;
            request = std::exchange(next_, std::nullopt);
        }
        MetadataRead answer = read(*request);
        QMetaObject::invokeMethod(
            this, [this, number = request->number, answer] { deliver(number, answer); },
            Qt::QueuedConnection);
    }
}

MetadataRead MetadataReader::read(const Request& request) {
    MetadataRead answer;
    answer.file = request.file;
    answer.output = request.context.tempPath / kOutput;
    if (const std::error_code refused = platform::makeOwnSubfolder(request.context.tempPath)) {
        answer.fault = platform::wide(refused.message());
        return answer;
    }
    std::error_code error;
    // What the last read left must never be taken for this file's tags when the tool fails to write.
    fs::remove(answer.output, error);
    ToolRunner runner(request.context);
    runner.setWarmStarter(warmStarter_);
    runner.setKeepWaiting([&](std::chrono::milliseconds) { return isWanted(request.number); });
    ReadFeedback silent;
    ReadCommands commands(request.context, runner, silent);
    answer.wasRun = commands.ReadForPanel(request.file, answer.output, false) != 0;
    answer.wasStopped = runner.wasStopped();
    answer.fault = platform::wide(runner.lastFaultOfRead(answer.output));
    const bool isEmpty = fs::file_size(answer.output, error) == 0 || error;
    // Every file has tags: at least its name and its size.
    if (answer.fault.isEmpty() && isEmpty) answer.fault = platform::wide(app::spokenText(text::kNoAnswer));
    return answer;
}

void MetadataReader::deliver(std::uint64_t number, const MetadataRead& read) {
    if (number != lastNumber_ || answer_ == nullptr) return;
    const Answer answer = std::exchange(answer_, nullptr);
    answer(read);
}

}  // namespace exiftool
