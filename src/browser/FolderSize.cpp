#include "browser/FolderSize.h"

#include "platform/FolderEntries.h"

#include <vector>

namespace browser {

std::optional<std::uint64_t> folderSize(const std::filesystem::path& folder,
                                        const std::atomic_bool& cancelled) {
    std::uint64_t bytes = 0;
    std::vector<std::filesystem::path> waiting{folder};
    while (!waiting.empty()) {
        const std::filesystem::path next = std::move(waiting.back());
        waiting.pop_back();
        const auto entries =
            platform::FolderEntries::read(next, {.withHidden = true, .cancelled = &cancelled});
        if (cancelled) return std::nullopt;
        for (std::size_t at = 0; at < entries.size(); ++at) {
            const platform::FileFacts& facts = entries.facts(at);
            if (facts.isLink) continue;
            if (facts.kind == platform::FileKind::Folder) waiting.push_back(next / entries.name(at));
            if (facts.kind == platform::FileKind::File) bytes += facts.size;
        }
    }
    return bytes;
}

}  // namespace browser
