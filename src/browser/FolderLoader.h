#pragma once

#include "browser/FolderReader.h"
#include "browser/ItemOrder.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

class QObject;

namespace browser {

struct FolderRequest {
    std::filesystem::path folder;
    bool showHidden = false;
    SortSettings sort;
};

struct LoadedFolder {
    FolderListing listing;
    std::vector<std::int32_t> order;  ///< all item ids, sorted
};

/// The ids in the order of the settings, the volume's cluster size looked up where the order asks for it;
/// those that compare equal keep their places. Empty once cancelled (may be null) is set. Any thread.
std::vector<std::int32_t> sortItems(const std::filesystem::path& folder, const ItemStore& items,
                                    std::span<const std::int32_t> ids, SortSettings settings,
                                    const std::atomic_bool* cancelled = nullptr);

/// Lists and sorts a folder on the calling thread. A set cancelled flag (may be null) gives the state
/// Cancelled. In modes other than Name the items are put in the order of their names first, since folders
/// give them in none.
LoadedFolder loadFolder(const FolderRequest& request, const std::atomic_bool* cancelled = nullptr);

/// Loads one folder after the other on threads of their own, so that a slow folder holds up nobody, not even
/// the next one. GUI thread. The destructor asks the running loads to end and waits for them.
class FolderLoader {
 public:
    using Done = std::function<void(LoadedFolder)>;

    FolderLoader() = default;
    ~FolderLoader();
    FolderLoader(const FolderLoader&) = delete;
    FolderLoader& operator=(const FolderLoader&) = delete;

    /// Starts a load; an earlier one is given up and its result dropped. What is ready within patience is
    /// returned at once; otherwise nothing is, and done is called later, on context's thread from its event
    /// loop. context must outlive the loader.
    std::optional<LoadedFolder> start(FolderRequest request, std::chrono::milliseconds patience,
                                      QObject* context, Done done);

    /// Gives the running load up.
    void cancel();
    bool isLoading() const { return current_ != nullptr; }

 private:
    struct Load {
        std::atomic_bool cancelled = false;
        std::atomic_bool ended = false;
        std::mutex mutex;
        std::condition_variable changed;
        std::optional<LoadedFolder> result;
        bool waited = true;  ///< start() is still waiting and takes the result itself
        std::thread thread;
    };

    void finish(Load* load, const Done& done);
    void joinEnded();

    std::vector<std::shared_ptr<Load>> loads_;
    Load* current_ = nullptr;
};

}  // namespace browser
