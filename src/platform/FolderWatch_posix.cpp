#include "platform/FolderWatch.h"

#include "platform/FileDescriptor.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace platform {

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
    if (queue_ == nullptr) return;
    const int events = queue_->events.get();
    if (queue_->watch >= 0) ::inotify_rm_watch(events, queue_->watch);
    folder_ = folder;
    queue_->watch = folder.empty() ? -1
                                   : ::inotify_add_watch(events, folder.c_str(),
                                                         IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR);
}

void FolderWatch::readEvents() {
    alignas(inotify_event) char buffer[4096];
    bool concerned = false;
    for (ssize_t got = 0; (got = ::read(queue_->events.get(), buffer, sizeof buffer)) > 0;) {
        for (ssize_t at = 0; at < got;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
            concerned = concerned || (event->wd == queue_->watch &&
                                      (event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT)) != 0);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    std::error_code failure;
    if (concerned && !std::filesystem::is_directory(folder_, failure)) vanished_();
}

}  // namespace platform
