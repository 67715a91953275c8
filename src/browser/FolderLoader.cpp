#include "browser/FolderLoader.h"

#include "platform/Volumes.h"

#include <QMetaObject>
#include <QObject>
#include <numeric>

namespace browser {

std::vector<std::int32_t> sortItems(const std::filesystem::path& folder, const ItemStore& items,
                                    std::span<const std::int32_t> ids, SortSettings settings,
                                    const std::atomic_bool* cancelled) {
    if (settings.mode == app::SortMode::RealSize) settings.clusterBytes = platform::clusterBytes(folder);
    try {
        return ItemOrder(std::move(settings)).sorted(items, ids, SortStop(cancelled));
    } catch (const SortGivenUp&) {
        return {};
    }
}

LoadedFolder loadFolder(const FolderRequest& request, const std::atomic_bool* cancelled) {
    LoadedFolder loaded;
    loaded.listing = readFolder(request.folder, {request.showHidden, cancelled});
    if (loaded.listing.state != FolderState::Readable) return loaded;
    std::vector<std::int32_t> ids(static_cast<std::size_t>(loaded.listing.items.nextItemId()));
    std::iota(ids.begin(), ids.end(), 0);
    if (request.sort.mode != app::SortMode::Name) {
        SortSettings byName = request.sort;
        byName.mode = app::SortMode::Name;
        byName.ascending = true;
        ids = sortItems(request.folder, loaded.listing.items, ids, byName, cancelled);
    }
    loaded.order = sortItems(request.folder, loaded.listing.items, ids, request.sort, cancelled);
    if (cancelled != nullptr && *cancelled) loaded.listing.state = FolderState::Cancelled;
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
