#pragma once

#include "app/SortMode.h"
#include "browser/DisplayText.h"
#include "browser/ItemStore.h"
#include "browser/NameOrder.h"

namespace browser {

/// The part of the settings that decides the order of the items; a copy, so that another thread may sort.
struct SortSettings {
    app::SortMode mode = app::SortMode::Name;
    bool ascending = true;
    bool natural = true;  ///< numbers by value; and equal items stay as they are
    bool mixed = true;    ///< folders stand among the files
    NameSettings names;
    std::uint64_t clusterBytes = 4096;  ///< what a file's size on disk is a multiple of
    QLocale locale;

    bool operator==(const SortSettings&) const = default;
};

/// A SortMode that is no number of its table counts as Name.
SortSettings sortSettingsOf(const app::Settings& settings);

/// The order of a folder's items. Descending turns all of it round, the folders' place included; that is
/// meant. In modes that compare nothing here, such as CameraModel, all items are equal. Any thread.
class ItemOrder {
 public:
    explicit ItemOrder(SortSettings settings);

    /// Negative, 0 or positive, direction included.
    int CompareItems(const ItemStore& items, std::int32_t left, std::int32_t right) const;

    /// The ids in order; those that compare equal keep their places. Throws SortGivenUp when stop does.
    std::vector<std::int32_t> sorted(const ItemStore& items, std::span<const std::int32_t> ids,
                                     const SortStop& stop = SortStop()) const;

    const SortSettings& settings() const { return settings_; }

 private:
    struct TextOfMode {
        std::vector<QByteArray> made;  ///< holds the texts that are not the names' own bytes
        std::vector<std::string_view> texts;
    };

    TextOfMode textsOf(const ItemStore& items, std::span<const std::int32_t> ids,
                       const SortStop& stop = SortStop()) const;
    std::vector<std::uint64_t> keysOf(const ItemStore& items, std::span<const std::int32_t> ids,
                                      const SortStop& stop) const;
    std::vector<std::int32_t> sortedByName(const ItemStore& items, std::span<const std::int32_t> ids,
                                           const SortStop& stop) const;
    const NameOrder& textOrder() const {
        return settings_.mode == app::SortMode::Name ? nameOrder_ : naturalOrder_;
    }

    SortSettings settings_;
    NameOrder nameOrder_;
    NameOrder naturalOrder_;
};

/// Eight places, "-" where the item has it not: archive, hidden, read-only, system, directory, compressed,
/// sparse, encrypted.
QByteArray attributeText(const ListItem& item);

}  // namespace browser
