#include "browser/FolderLoader.h"

#include <sys/statvfs.h>

#include <QMetaObject>
#include <QObject>
#include <numeric>

namespace browser {

LoadedFolder loadFolder(const FolderRequest& request, const std::atomic_bool* cancelled) {
    LoadedFolder loaded;
    loaded.listing = readFolder(request.folder, {request.showHidden, cancelled});
    if (loaded.listing.state != FolderState::Readable) return loaded;
    std::vector<std::int32_t> ids(static_cast<std::size_t>(loaded.listing.items.nextItemId()));
    std::iota(ids.begin(), ids.end(), 0);
    SortSettings sort = request.sort;
    if (sort.mode != app::SortMode::Name) {
        SortSettings byName = sort;
        byName.mode = app::SortMode::Name;
        byName.ascending = true;
        ids = ItemOrder(byName).sorted(loaded.listing.items, ids);
    }
    struct statvfs volume;
    if (sort.mode == app::SortMode::RealSize)
        sort.clusterBytes = ::statvfs(request.folder.c_str(), &volume) == 0 ? volume.f_frsize : 0;
    loaded.order = ItemOrder(sort).sorted(loaded.listing.items, ids);
    return loaded;
}

FolderLoader::~FolderLoader() {
    cancel();
    for (const std::shared_ptr<Load>& load : loads_)
        if (load->thread.joinable()) load->thread.join();
}

void FolderLoader::cancel() {
    if (current_ != nullptr) current_->cancelled = true;
    current_ = nullptr;
}

void FolderLoader::joinEnded() {
    std::erase_if(loads_, [](const std::shared_ptr<Load>& load) {
        if (!load->ended) return false;
        load->thread.join();
        return true;
    });
}

std::optional<LoadedFolder> FolderLoader::start(FolderRequest request, std::chrono::milliseconds patience,
                                                QObject* context, Done done) {
    cancel();
    joinEnded();
    const auto load = std::make_shared<Load>();
    loads_.push_back(load);
    current_ = load.get();
    load->thread = std::thread([this, load, context, request = std::move(request), done = std::move(done)] {
        LoadedFolder loaded = loadFolder(request, &load->cancelled);
        bool waited = true;
        {
            const std::lock_guard lock(load->mutex);
            load->result = std::move(loaded);
            waited = load->waited;
        }
        load->changed.notify_one();
        if (!waited && !load->cancelled)
            QMetaObject::invokeMethod(
                context,
                [this, load, done] {
                    // Given up also means that the loader may be gone.
                    if (!load->cancelled) finish(load.get(), done);
                },
                Qt::QueuedConnection);
        load->ended = true;
    });
    std::unique_lock lock(load->mutex);
    if (!load->changed.wait_for(lock, patience, [&] { return load->result.has_value(); })) {
        load->waited = false;
        return std::nullopt;
    }
    current_ = nullptr;
    return std::move(load->result);
}

void FolderLoader::finish(Load* load, const Done& done) {
    current_ = nullptr;
    LoadedFolder loaded = std::move(*load->result);
    joinEnded();
    done(std::move(loaded));
}

}  // namespace browser
