#include "browser/ItemOrder.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using browser::ItemKind;
using browser::ItemOrder;
using browser::ItemStore;
using browser::SortSettings;

ItemStore sampleItems() {
    ItemStore items;
    const auto add = [&](const char* name, ItemKind kind, std::uint64_t size, std::int64_t time,
                         bool valid = true) {
        browser::ListItem item;
        item.kind = kind;
        item.findData = {size, time, time * 2, -time};
        item.findDataValid = valid;
        items.add(name, item);
    };
    add("img10.jpg", ItemKind::File, 100, 50);
    add("img9.JPG", ItemKind::File, 200, 40);
    add("Folder", ItemKind::Folder, 0, 45);
    add("notes.txt", ItemKind::File, 0, 60);
    add("lost", ItemKind::Unknown, 0, 0, false);
    add("archive", ItemKind::Folder, 0, 10);
    add("IMG9.jpg", ItemKind::File, 200, 40);
    return items;
}

QStringList sortedNames(const SortSettings& settings) {
    const ItemStore items = sampleItems();
    std::vector<std::int32_t> ids(static_cast<std::size_t>(items.nextItemId()));
    std::iota(ids.begin(), ids.end(), 0);
    QStringList names;
    for (const std::int32_t id : ItemOrder(settings).sorted(items, ids))
        names << QString::fromUtf8(items.name(id).data(), static_cast<qsizetype>(items.name(id).size()));
    return names;
}

struct OrderCase {
    const char* name;
    app::SortMode mode;
    bool ascending, natural, mixed;
    QStringList names;
};

class ItemOrderTable : public testing::TestWithParam<OrderCase> {};

TEST_P(ItemOrderTable, Sorts) {
    SortSettings settings;
    settings.mode = GetParam().mode;
    settings.ascending = GetParam().ascending;
    settings.natural = GetParam().natural;
    settings.mixed = GetParam().mixed;
    EXPECT_EQ(sortedNames(settings), GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, ItemOrderTable,
    testing::Values(
        OrderCase{"NaturalNamesMixed",
                  app::SortMode::Name,
                  true,
                  true,
                  true,
                  {"archive", "Folder", "img9.JPG", "IMG9.jpg", "img10.jpg", "lost", "notes.txt"}},
        OrderCase{"FoldersFirst",
                  app::SortMode::Name,
                  true,
                  true,
                  false,
                  {"archive", "Folder", "img9.JPG", "IMG9.jpg", "img10.jpg", "lost", "notes.txt"}},
        OrderCase{"DescendingPutsFoldersLastAndKeepsEqualOnes",
                  app::SortMode::Name,
                  false,
                  true,
                  false,
                  {"notes.txt", "lost", "img10.jpg", "img9.JPG", "IMG9.jpg", "Folder", "archive"}},
        OrderCase{"PlainNamesByDigit",
                  app::SortMode::Name,
                  true,
                  false,
                  true,
                  {"archive", "Folder", "img10.jpg", "img9.JPG", "IMG9.jpg", "lost", "notes.txt"}},
        OrderCase{"DateHasItemsWithoutDataFirst",
                  app::SortMode::DateModified,
                  true,
                  true,
                  true,
                  {"lost", "archive", "img9.JPG", "IMG9.jpg", "Folder", "img10.jpg", "notes.txt"}},
        OrderCase{"CreatedGoesItsOwnWay",
                  app::SortMode::Created,
                  true,
                  true,
                  true,
                  {"lost", "notes.txt", "img10.jpg", "Folder", "img9.JPG", "IMG9.jpg", "archive"}},
        OrderCase{"SizeKeepsEqualOnesWhenNatural",
                  app::SortMode::Size,
                  true,
                  true,
                  true,
                  {"lost", "Folder", "notes.txt", "archive", "img10.jpg", "img9.JPG", "IMG9.jpg"}},
        OrderCase{"SizeTiesByNameWhenNotNatural",
                  app::SortMode::Size,
                  true,
                  false,
                  true,
                  {"lost", "archive", "Folder", "notes.txt", "img10.jpg", "img9.JPG", "IMG9.jpg"}},
        OrderCase{"DescendingTiesRunBackwards",
                  app::SortMode::Size,
                  false,
                  false,
                  true,
                  {"img9.JPG", "IMG9.jpg", "img10.jpg", "notes.txt", "Folder", "archive", "lost"}},
        OrderCase{"RealSizeHasFoldersFirst",
                  app::SortMode::RealSize,
                  true,
                  true,
                  true,
                  {"Folder", "lost", "archive", "notes.txt", "img10.jpg", "img9.JPG", "IMG9.jpg"}},
        OrderCase{"ExtensionWithoutOneFirst",
                  app::SortMode::Extension,
                  true,
                  true,
                  true,
                  {"Folder", "lost", "archive", "img10.jpg", "img9.JPG", "IMG9.jpg", "notes.txt"}},
        OrderCase{"ModeWithoutComparisonKeepsTheOrder",
                  app::SortMode::CameraModel,
                  true,
                  true,
                  true,
                  {"img10.jpg", "img9.JPG", "Folder", "notes.txt", "lost", "archive", "IMG9.jpg"}},
        OrderCase{"ModeWithoutComparisonTiesByName",
                  app::SortMode::CameraModel,
                  true,
                  false,
                  true,
                  {"archive", "Folder", "img10.jpg", "img9.JPG", "IMG9.jpg", "lost", "notes.txt"}}),
    [](const auto& info) { return info.param.name; });

// The sort and the comparison of two are two ways to one order.
TEST(ItemOrder, SortedAgreesWithCompareItems) {
    const ItemStore items = sampleItems();
    std::vector<std::int32_t> ids(static_cast<std::size_t>(items.nextItemId()));
    std::iota(ids.begin(), ids.end(), 0);
    for (const auto& [number, modeName] : app::sortModes()) {
        for (int bits = 0; bits < 8; ++bits) {
            SortSettings settings;
            settings.mode = static_cast<app::SortMode>(number);
            settings.ascending = (bits & 1) != 0;
            settings.natural = (bits & 2) != 0;
            settings.mixed = (bits & 4) != 0;
            const ItemOrder order(settings);
            const std::vector<std::int32_t> sorted = order.sorted(items, ids);
            for (std::size_t i = 1; i < sorted.size(); ++i) {
                const int compared = order.CompareItems(items, sorted[i - 1], sorted[i]);
                EXPECT_LE(compared, 0) << number << ' ' << bits;
                EXPECT_TRUE(compared != 0 || sorted[i - 1] < sorted[i]) << number << ' ' << bits;
            }
        }
    }
}

TEST(ItemOrder, NamesAreComparedAsShown) {
    ItemStore items;
    browser::ListItem file;
    file.kind = ItemKind::File;
    items.add("b.aaa", file);
    items.add("b.zzz", file);
    items.add("a.zzz", file);
    SortSettings settings;
    settings.names.showExtensions = false;
    EXPECT_EQ(ItemOrder(settings).CompareItems(items, 0, 1), 0);
    EXPECT_GT(ItemOrder(settings).CompareItems(items, 0, 2), 0);
}

struct TextCase {
    const char* name;
    bool folder, showExtensions, hideLinks;
    const char* text;
};

TEST(DisplayText, CutsExtensionsAsTheSettingsSay) {
    const TextCase cases[] = {
        {"a.jpg", false, true, false, "a.jpg"},  {"a.jpg", false, false, false, "a"},
        {"a.b.jpg", false, false, false, "a.b"}, {".profile", false, false, false, ".profile"},
        {"dir.d", true, false, false, "dir.d"},  {"x.LNK", false, true, true, "x"},
        {"x.lnk", false, true, false, "x.lnk"},  {"Mr. Smith", false, false, false, "Mr. Smith"},
        {"noext", false, false, false, "noext"}, {"x.jpg", false, true, true, "x.jpg"},
    };
    for (const TextCase& each : cases)
        EXPECT_EQ(browser::displayText(each.name, each.folder, {each.showExtensions, each.hideLinks}),
                  each.text)
            << each.name;
}

}  // namespace
