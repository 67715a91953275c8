#include "platform/FolderWatch.h"

#include "platform/FileDescriptor.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace platform {

namespace {

constexpr unsigned kFolderGoes = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr unsigned kEntryGoes = IN_DELETE | IN_MOVED_FROM;

}  // namespace

struct FolderWatch::Queue {
    explicit Queue(FileDescriptor opened)
        : events(std::move(opened)), notifier(events.get(), QSocketNotifier::Read) {}

    FileDescriptor events;
    QSocketNotifier notifier;  // goes first: it must not outlive its descriptor
    int watch = -1;
};

FolderWatch::FolderWatch(std::function<void()> vanished, QObject* parent)
    : QObject(parent), vanished_(std::move(vanished)) {
    FileDescriptor events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!events.isOpen()) return;
    queue_ = std::make_unique<Queue>(std::move(events));
    connect(&queue_->notifier, &QSocketNotifier::activated, this, &FolderWatch::readEvents);
}

FolderWatch::~FolderWatch() = default;

void FolderWatch::watch(const std::filesystem::path& folder) {
    name_.clear();
    watchFor(folder, kFolderGoes);
}

void FolderWatch::watchFile(const std::filesystem::path& file) {
    name_ = file.filename().native();
    watchFor(file.parent_path(), kFolderGoes | kEntryGoes);
}

void FolderWatch::watchFor(const std::filesystem::path& folder, unsigned wanted) {
    if (queue_ == nullptr) return;
    const int events = queue_->events.get();
    if (queue_->watch >= 0) ::inotify_rm_watch(events, queue_->watch);
    folder_ = folder;
    queue_->watch = folder.empty() ? -1 : ::inotify_add_watch(events, folder.c_str(), wanted | IN_ONLYDIR);
}

void FolderWatch::readEvents() {
    alignas(inotify_event) char buffer[4096];
    bool concerned = false;
    for (ssize_t got = 0; (got = ::read(queue_->events.get(), buffer, sizeof buffer)) > 0;) {
        for (ssize_t at = 0; at < got;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
            const bool isFolder = (event->mask & (kFolderGoes | IN_UNMOUNT)) != 0;
            const bool isEntry =
                (event->mask & kEntryGoes) != 0 && event->len > 0 && name_ == std::string_view(event->name);
            concerned = concerned || (event->wd == queue_->watch && (isFolder || isEntry));
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (!concerned) return;
    std::error_code failure;
    const bool isThere = name_.empty() ? std::filesystem::is_directory(folder_, failure)
                                       : std::filesystem::exists(folder_ / name_, failure);
    if (!isThere) vanished_();
}

}  // namespace platform
