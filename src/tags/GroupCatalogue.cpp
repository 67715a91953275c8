#include "tags/GroupCatalogue.h"

#include "app/Settings.h"
#include "tags/CaseFolding.h"

#include <unordered_map>

namespace tags {

namespace {

// clang-format off
constexpr GroupEntry kGroups[] = {
#include "tags/data/GroupCatalogueRows.inc"
};
// clang-format on

static_assert(std::size(kGroups) == kGroupCount);

/// Positions or GroupIds, both ends included.
struct Range {
    std::uint32_t first;
    std::uint32_t last;
};

template <typename Value>
struct Ranged {
    Value value;
    Range range;
};

constexpr Ranged<GroupImage> kImages[] = {
    {GroupImage::Exif, {17, 17}},      {GroupImage::Exif, {28, 29}},    {GroupImage::Exif, {78, 82}},
    {GroupImage::Exif, {112, 112}},    {GroupImage::Exif, {164, 164}},  {GroupImage::Exif, {200, 204}},
    {GroupImage::Iptc, {83, 85}},      {GroupImage::File, {30, 30}},    {GroupImage::Maker, {107, 107}},
    {GroupImage::Maker, {192, 193}},   {GroupImage::Media, {0, 0}},     {GroupImage::Media, {4, 5}},
    {GroupImage::Composite, {18, 18}}, {GroupImage::Media, {8, 8}},     {GroupImage::Media, {25, 25}},
    {GroupImage::Media, {27, 27}},     {GroupImage::Media, {32, 33}},   {GroupImage::Media, {46, 46}},
    {GroupImage::Media, {50, 50}},     {GroupImage::Media, {74, 77}},   {GroupImage::Media, {105, 105}},
    {GroupImage::Media, {114, 119}},   {GroupImage::Media, {125, 126}}, {GroupImage::Media, {146, 146}},
    {GroupImage::Media, {210, 210}},   {GroupImage::Media, {230, 230}}, {GroupImage::Media, {329, 329}},
    {GroupImage::Icc, {66, 73}},       {GroupImage::Gps, {47, 47}},
};

constexpr Ranged<GroupGate> kGates[] = {
    {GroupGate::Exif, {17, 17}},         {GroupGate::Exif, {29, 29}},
    {GroupGate::Exif, {78, 80}},         {GroupGate::Exif, {82, 82}},
    {GroupGate::Exif, {127, 128}},       {GroupGate::Exif, {164, 164}},
    {GroupGate::Exif, {200, 204}},       {GroupGate::Iptc, {83, 85}},
    {GroupGate::Xmp, {239, 328}},        {GroupGate::Icc, {66, 73}},
    {GroupGate::Gps, {47, 47}},          {GroupGate::Composite, {18, 18}},
    {GroupGate::MakerNotes, {11, 15}},   {GroupGate::MakerNotes, {19, 19}},
    {GroupGate::MakerNotes, {40, 41}},   {GroupGate::MakerNotes, {96, 97}},
    {GroupGate::MakerNotes, {99, 99}},   {GroupGate::MakerNotes, {107, 107}},
    {GroupGate::MakerNotes, {120, 121}}, {GroupGate::MakerNotes, {134, 136}},
    {GroupGate::MakerNotes, {138, 140}}, {GroupGate::MakerNotes, {143, 143}},
    {GroupGate::MakerNotes, {148, 150}}, {GroupGate::MakerNotes, {153, 153}},
    {GroupGate::MakerNotes, {169, 169}}, {GroupGate::MakerNotes, {184, 184}},
    {GroupGate::MakerNotes, {186, 186}}, {GroupGate::MakerNotes, {189, 190}},
    {GroupGate::MakerNotes, {192, 194}}, {GroupGate::MakerNotes, {196, 199}},
};

/// These were never given a counter, and without one a row has no place.
constexpr std::uint32_t kGroupsWithoutRows[] = {9,   16,  26,  42,  48,  49,  81,  89,  93,
                                                102, 110, 112, 137, 142, 144, 167, 170, 171,
                                                191, 207, 208, 256, 257, 307, 313};

/// AFCP, Contax, DV, EXIF, KDC_IFD, MakerNotes, Palm, Sanyo, SVG, SVG-i, XMP-camera and XMP-camera_1_.
constexpr std::uint32_t kGroupsWithoutCount[] = {3, 19, 25, 28, 97, 107, 147, 190, 205, 206, 251, 252};

template <typename Value, std::size_t size>
Value valueAt(const Ranged<Value> (&table)[size], std::uint32_t number, Value otherwise) {
    for (const Ranged<Value>& entry : table) {
        if (number >= entry.range.first && number <= entry.range.last) return entry.value;
    }
    return otherwise;
}

struct FoldedHash {
    std::size_t operator()(std::u16string_view text) const {
        std::size_t hash = 14695981039346656037U;
        for (const char16_t unit : text) hash = (hash ^ foldedUnit(unit)) * 1099511628211U;
        return hash;
    }
};

struct FoldedEqual {
    bool operator()(std::u16string_view left, std::u16string_view right) const {
        return equalWithoutCase(left, right);
    }
};

}  // namespace

std::span<const GroupEntry> groupTable() {
    return kGroups;
}

std::optional<std::uint32_t> FindGroup(QStringView bracketedToken) {
    // The first of two equal keys stays, as a walk in table order would find it.
    static const auto kIdsByKey = [] {
        std::unordered_map<std::u16string_view, std::uint32_t, FoldedHash, FoldedEqual> ids;
        for (const GroupEntry& entry : kGroups) ids.try_emplace(entry.key, entry.groupId);
        return ids;
    }();
    const auto found = kIdsByKey.find(units(bracketedToken));
    if (found == kIdsByKey.end()) return std::nullopt;
    return found->second;
}

QString groupName(std::uint32_t position) {
    if (position >= kGroupCount) return {};
    const std::u16string_view key = kGroups[position].key;
    return QString::fromUtf16(key.data() + 1, static_cast<qsizetype>(key.size() - 2));
}

GroupImage GroupIconClass(std::uint32_t position) {
    return valueAt(kImages, position, GroupImage::Other);
}

GroupGate groupGateOf(std::uint32_t groupId) {
    return valueAt(kGates, groupId, GroupGate::None);
}

bool groupHasRows(std::uint32_t groupId) {
    return groupId < kGroupCount &&
           std::ranges::find(kGroupsWithoutRows, groupId) == std::end(kGroupsWithoutRows);
}

bool GroupIsShown(std::uint32_t groupId, const app::Settings& settings) {
    if (!groupHasRows(groupId)) return false;
    const app::Settings::MetadataList& shown = settings.metadataList;
    switch (groupGateOf(groupId)) {
        case GroupGate::None:
            return true;
        case GroupGate::Exif:
            return shown.showExif;
        case GroupGate::Iptc:
            return shown.showIptc;
        case GroupGate::Xmp:
            return shown.showXmp;
        case GroupGate::Icc:
            return shown.showIcc;
        case GroupGate::MakerNotes:
            return shown.showMakerNotes;
        case GroupGate::Gps:
            return shown.showGps;
        case GroupGate::Composite:
            return shown.showComposite;
    }
    return true;
}

bool groupShowsCount(std::uint32_t groupId) {
    return groupHasRows(groupId) &&
           std::ranges::find(kGroupsWithoutCount, groupId) == std::end(kGroupsWithoutCount);
}

}  // namespace tags
