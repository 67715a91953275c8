#include "browser/ItemOrder.h"

#include "app/Settings.h"
#include "browser/TypeNames.h"
#include "platform/Text.h"
#include "platform/UserNames.h"

#include <algorithm>

namespace browser {
namespace {

NameOrder::Numbers numbersOf(bool natural) {
    return natural ? NameOrder::Numbers::ByValue : NameOrder::Numbers::ByDigit;
}

/// Asks once for each user number.
class OwnerNames {
 public:
    const QByteArray& of(std::uint32_t user) {
        const auto known = names_.find(user);
        if (known != names_.end()) return known->second;
        return names_.emplace(user, QByteArray::fromStdString(platform::nameOfUser(user))).first->second;
    }

 private:
    std::map<std::uint32_t, QByteArray> names_;
};

bool comparesText(app::SortMode mode) {
    switch (mode) {
        case app::SortMode::Name:
        case app::SortMode::Type:
        case app::SortMode::Attributes:
        case app::SortMode::Owner:
        case app::SortMode::Rating:
        case app::SortMode::Extension:
            return true;
        default:
            return false;
    }
}

// An item without valid data has the key 0 and so stands first; all others are above it.
std::uint64_t timeKey(const ListItem& item, std::int64_t time) {
    constexpr std::uint64_t kSign = 1ULL << 63;
    return item.findDataValid ? std::max<std::uint64_t>(static_cast<std::uint64_t>(time) ^ kSign, 1) : 0;
}

std::uint64_t keyOf(const ListItem& item, const SortSettings& settings) {
    switch (settings.mode) {
        case app::SortMode::DateModified:
            return timeKey(item, item.findData.modified);
        case app::SortMode::Created:
            return timeKey(item, item.findData.created);
        case app::SortMode::Accessed:
            return timeKey(item, item.findData.accessed);
        case app::SortMode::Size:
            return item.findDataValid ? item.findData.size + 1 : 0;
        case app::SortMode::RealSize: {
            if (item.isFolder() || !item.findDataValid || settings.clusterBytes == 0) return 0;
            const std::uint64_t clusters =
                (item.findData.size + settings.clusterBytes - 1) / settings.clusterBytes;
            return clusters * settings.clusterBytes + 1;
        }
        // Free and total space belong to roots of drives, which no folder lists; the properties of the
        // remaining modes are not compared.
        default:
            return 0;
    }
}

struct Entry {
    std::uint64_t key;
    std::uint32_t tie;
    std::uint32_t position;
    std::uint8_t kind;  // 0 folder and 1 file where folders are kept apart, else 0

    int compare(const Entry& other) const {
        if (kind != other.kind) return kind < other.kind ? -1 : 1;
        if (key != other.key) return key < other.key ? -1 : 1;
        return tie == other.tie ? 0 : tie < other.tie ? -1 : 1;
    }
};

}  // namespace

SortSettings sortSettingsOf(const app::Settings& settings) {
    SortSettings sort;
    if (!app::nameOfNumber(app::sortModes(), settings.main.sortMode).isEmpty())
        sort.mode = static_cast<app::SortMode>(settings.main.sortMode);
    sort.ascending = settings.main.sortAscending;
    sort.natural = settings.listView.useNaturalSortOrder != 0;
    sort.mixed = settings.listView.displayMixedFilesAndFolders;
    sort.names = nameSettingsOf(settings);
    return sort;
}

QByteArray attributeText(const ListItem& item) {
    QByteArray text("--------");
    if (!item.isFolder()) text[0] = 'A';
    if ((item.attributes & attribute::kHidden) != 0) text[1] = 'H';
    if ((item.attributes & attribute::kReadOnly) != 0) text[2] = 'R';
    if ((item.attributes & attribute::kSystem) != 0) text[3] = 'S';
    if (item.isFolder()) text[4] = 'D';
    return text;
}

ItemOrder::ItemOrder(SortSettings settings)
    : settings_(std::move(settings)),
      nameOrder_(numbersOf(settings_.natural), settings_.locale),
      naturalOrder_(NameOrder::Numbers::ByValue, settings_.locale) {}

ItemOrder::TextOfMode ItemOrder::textsOf(const ItemStore& items, std::span<const std::int32_t> ids,
                                         const SortStop& stop) const {
    TextOfMode result;
    result.texts.reserve(ids.size());
    OwnerNames owners;
    const bool made = settings_.mode != app::SortMode::Name && settings_.mode != app::SortMode::Extension;
    if (made) result.made.reserve(ids.size());
    for (const std::int32_t id : ids) {
        stop.check();
        const ListItem& item = items.item(id);
        const std::string_view name = items.name(item);
        switch (settings_.mode) {
            case app::SortMode::Extension:
                result.texts.push_back(item.isFolder() ? std::string_view() : extensionOf(name));
                continue;
            case app::SortMode::Type:
                result.made.push_back(TypeNames::instance().ofName(name, item.kind).comment.toUtf8());
                break;
            case app::SortMode::Attributes:
                result.made.push_back(attributeText(item));
                break;
            case app::SortMode::Owner:
            case app::SortMode::Rating:
                result.made.push_back(owners.of(item.owner));
                break;
            default:
                result.texts.push_back(displayText(name, item.isFolder(), settings_.names));
                continue;
        }
        const QByteArray& text = result.made.back();
        result.texts.emplace_back(text.constData(), static_cast<std::size_t>(text.size()));
    }
    return result;
}

std::vector<std::uint64_t> ItemOrder::keysOf(const ItemStore& items, std::span<const std::int32_t> ids,
                                             const SortStop& stop) const {
    std::vector<std::uint64_t> keys(ids.size());
    if (comparesText(settings_.mode)) {
        const TextOfMode texts = textsOf(items, ids, stop);
        for (const NameOrder::Ranked& ranked : textOrder().sorted(texts.texts, stop))
            keys[ranked.index] = ranked.rank;
        return keys;
    }
    for (std::size_t i = 0; i < ids.size(); ++i) keys[i] = keyOf(items.item(ids[i]), settings_);
    return keys;
}

/// The shortest way for the most usual order: natural names.
std::vector<std::int32_t> ItemOrder::sortedByName(const ItemStore& items, std::span<const std::int32_t> ids,
                                                  const SortStop& stop) const {
    const TextOfMode texts = textsOf(items, ids, stop);
    const std::vector<NameOrder::Ranked> ranked = nameOrder_.sorted(texts.texts, stop);
    std::vector<std::int32_t> order;
    order.reserve(ids.size());
    for (const NameOrder::Ranked& each : ranked) order.push_back(ids[each.index]);
    if (!settings_.ascending) {
        // Turned round as a whole, equal ones put back into their own order.
        std::ranges::reverse(order);
        for (std::size_t end = ranked.size(); end > 0;) {
            std::size_t begin = end;
            while (begin > 0 && ranked[begin - 1].rank == ranked[end - 1].rank) --begin;
            const auto at = [&](std::size_t place) {
                return order.begin() + static_cast<std::ptrdiff_t>(ranked.size() - place);
            };
            std::reverse(at(end), at(begin));
            end = begin;
        }
    }
    if (!settings_.mixed)
        std::stable_partition(order.begin(), order.end(), [&](std::int32_t id) {
            return items.item(id).isFolder() == settings_.ascending;
        });
    return order;
}

std::vector<std::int32_t> ItemOrder::sorted(const ItemStore& items, std::span<const std::int32_t> ids,
                                            const SortStop& stop) const {
    if (settings_.mode == app::SortMode::Name && settings_.natural) return sortedByName(items, ids, stop);
    const std::vector<std::uint64_t> keys = keysOf(items, ids, stop);
    std::vector<Entry> entries(ids.size());
    for (std::uint32_t i = 0; i < ids.size(); ++i) {
        const bool file = !settings_.mixed && !items.item(ids[i]).isFolder();
        entries[i] = {keys[i], 0, i, static_cast<std::uint8_t>(file ? 1 : 0)};
    }
    if (!settings_.natural) {
        std::vector<std::string_view> names;
        names.reserve(ids.size());
        for (const std::int32_t id : ids) names.push_back(items.name(id));
        for (const NameOrder::Ranked& ranked : nameOrder_.sorted(names, stop))
            entries[ranked.index].tie = ranked.rank;
    }
    const int direction = settings_.ascending ? 1 : -1;
    std::ranges::sort(entries, [&](const Entry& a, const Entry& b) {
        stop.check();
        const int order = a.compare(b) * direction;
        return order != 0 ? order < 0 : a.position < b.position;
    });
    std::vector<std::int32_t> order;
    order.reserve(ids.size());
    for (const Entry& entry : entries) order.push_back(ids[entry.position]);
    return order;
}

int ItemOrder::CompareItems(const ItemStore& items, std::int32_t left, std::int32_t right) const {
    const ListItem& a = items.item(left);
    const ListItem& b = items.item(right);
    const int direction = settings_.ascending ? 1 : -1;
    if (!settings_.mixed && a.isFolder() != b.isFolder()) return a.isFolder() ? -direction : direction;
    const std::array<std::int32_t, 2> both{left, right};
    int order = 0;
    if (comparesText(settings_.mode)) {
        const TextOfMode texts = textsOf(items, both);
        order = textOrder().compare(texts.texts[0], texts.texts[1]);
    } else {
        const std::uint64_t leftKey = keyOf(a, settings_);
        const std::uint64_t rightKey = keyOf(b, settings_);
        order = leftKey < rightKey ? -1 : leftKey > rightKey ? 1 : 0;
    }
    if (order == 0 && !settings_.natural) order = nameOrder_.compare(items.name(a), items.name(b));
    return order * direction;
}

}  // namespace browser
