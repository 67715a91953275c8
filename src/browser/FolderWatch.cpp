#include "browser/FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace browser {

FolderWatch::FolderWatch(std::function<void()> vanished, QObject* parent)
    : QObject(parent), vanished_(std::move(vanished)), queue_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (queue_ < 0) return;
    notifier_ = new QSocketNotifier(queue_, QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &FolderWatch::readEvents);
}

FolderWatch::~FolderWatch() {
    delete notifier_;
    if (queue_ >= 0) ::close(queue_);
}

void FolderWatch::watch(const std::filesystem::path& folder) {
    if (queue_ < 0) return;
    if (watch_ >= 0) ::inotify_rm_watch(queue_, watch_);
    folder_ = folder;
    watch_ = folder.empty()
                 ? -1
                 : ::inotify_add_watch(queue_, folder.c_str(), IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR);
}

void FolderWatch::readEvents() {
    alignas(inotify_event) char buffer[4096];
    bool concerned = false;
    for (ssize_t got = 0; (got = ::read(queue_, buffer, sizeof buffer)) > 0;) {
        for (ssize_t at = 0; at < got;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
            concerned = concerned || (event->wd == watch_ &&
                                      (event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT)) != 0);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    std::error_code failure;
    if (concerned && !std::filesystem::is_directory(folder_, failure)) vanished_();
}

}  // namespace browser
