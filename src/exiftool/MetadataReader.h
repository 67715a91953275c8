#pragma once

#include "app/AppContext.h"

#include <QObject>
#include <QString>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace exiftool {

class WarmStarter;

/// What a read of the panel has brought.
struct MetadataRead {
    std::filesystem::path file;
    std::filesystem::path output;  ///< what ExifTool printed; stands until the next request
    bool wasRun = false;           ///< false: not started, or stopped
    bool wasStopped = false;
    QString fault;  ///< why the output is not all that the file holds, for people; empty when it is
};

/// Reads the tags of one file after another on a thread of its own, for the panel, while nothing in the
/// window waits. Only the last request counts: an earlier one is ended and never answered. It has a tool
/// runner and a temp folder of its own, so that reads go on while an operation writes or a dialog reads.
/// Lives on the GUI thread; its end ends the thread.
class MetadataReader : public QObject {
 public:
    using Answer = std::function<void(const MetadataRead& read)>;

    /// The context outlives the object and is read on the GUI thread.
    explicit MetadataReader(const app::AppContext& context, QObject* parent = nullptr);
    ~MetadataReader() override;

    /// Not owned; null for none.
    void setWarmStarter(WarmStarter* starter) { warmStarter_ = starter; }

    /// answer is called on the GUI thread, unless another request or Cancel comes before.
    void request(const std::filesystem::path& file, Answer answer);
    /// Ends the read in work and answers it as stopped.
    void stop();
    /// Nobody wants an answer any more.
    void cancel();

    bool isReading() const { return answer_ != nullptr; }

 private:
    struct Request {
        std::uint64_t number = 0;
        std::filesystem::path file;
        app::AppContext context;  ///< with the reader's temp folder
    };

    void work();
    MetadataRead read(const Request& request);
    void deliver(std::uint64_t number, const MetadataRead& read);
    bool isWanted(std::uint64_t number);

    const app::AppContext& context_;
    WarmStarter* warmStarter_ = nullptr;
    Answer answer_;
    std::uint64_t lastNumber_ = 0;  ///< GUI thread

    std::mutex guard_;
    std::condition_variable wake_;
    std::optional<Request> next_;
    std::uint64_t wanted_ = 0;  ///< the request whose answer counts; 0 for none
    bool isStopped_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

}  // namespace exiftool
