#pragma once

#include "platform/FileFacts.h"

#include <atomic>
#include <cstddef>
#include <string_view>
#include <vector>

namespace platform {

struct FolderReadOptions {
    bool withHidden = false;
    /// Set by another thread to give up; may be null.
    const std::atomic_bool* cancelled = nullptr;
};

/// The entries of a folder, in the order in which the file system gives them.
class FolderEntries {
 public:
    /// Reads names and facts. Nothing in the folder is opened, so that a pipe or a device cannot hold it up.
    /// An entry that vanishes meanwhile is left out. Any thread; large folders are read by several. When it
    /// is given up, what has been read means nothing.
    static FolderEntries read(const std::filesystem::path& folder, const FolderReadOptions& options);

    std::size_t size() const { return entries_.size(); }
    /// The entry's bytes; good as long as the object.
    std::string_view name(std::size_t index) const {
        return {names_.data() + entries_[index].nameOffset, entries_[index].nameLength};
    }
    const FileFacts& facts(std::size_t index) const { return entries_[index].facts; }
    std::size_t nameBytes() const { return names_.size() - entries_.size(); }  ///< of all names together

    /// The number of the system's error: of opening the folder, or of the read that has ended the reading
    /// early, after which there may be entries.
    int error() const { return error_; }

 private:
    struct ListedName;
    struct Entry {
        FileFacts facts;
        std::uint32_t nameOffset = 0;
        std::uint16_t nameLength = 0;
        bool isGone = false;
    };

    std::vector<ListedName> readNames(int folder, const FolderReadOptions& options);
    void readFacts(int folder, const std::vector<ListedName>& listed, const std::atomic_bool* cancelled);
    void readFactsOf(int folder, const std::vector<ListedName>& listed, std::size_t first, std::size_t end,
                     const std::atomic_bool* cancelled);

    std::vector<Entry> entries_;
    std::vector<char> names_;  ///< each ends with a zero
    int error_ = 0;
};

}  // namespace platform
