#include "app/SettingsStore.h"

#include "app/SettingsTable.h"
#include "app/SortMode.h"
#include "app/ToolPlaces.h"
#include "app/ViewMode.h"
#include "platform/IniFile.h"
#include "platform/Text.h"

#include <string_view>

namespace app {

namespace fs = std::filesystem;

namespace {

using platform::IniFile;

// Main first and ViewMode last but two in it: a number without meaning ends the load there.
constexpr const char* kLateSections[] = {
    "Main",  "ListView", "ListViewMetadata", "ExifTool", "MetadataList", "Misc", "Lists", "Metadata_Panel",
    "Tiles", "GPS",      "TreeView",         "BATCH",    "PATHS"};
constexpr const char* kEarlySections[] = {"Dark", "Colors", "WINDOWS_SIZES"};
constexpr const char* kPositionSection = "MainWindow-Position";
constexpr const char* kSizesSection = "WINDOWS_SIZES";

constexpr int kUserCommentOverlap = 9;
constexpr int kSideWidth = 300;
constexpr int kMiddleWidth = 600;
constexpr int kRightWidth = 500;

template <typename Value>
void read(const IniFile& ini, const SettingRow& row, const Value& defaultValue, Value& value) {
    if constexpr (std::is_same_v<Value, bool>) {
        value = ini.boolean(row.section, row.readKey, defaultValue);
    } else if constexpr (std::is_same_v<Value, QString>) {
        value = ini.text(row.section, row.readKey, defaultValue, kStringSettingCapacity);
    } else if constexpr (std::is_same_v<Value, fs::path>) {
        const std::string named = ini.find(row.section, row.readKey).value_or(std::string());
        if (!named.empty()) value = named;
    } else {
        value = static_cast<Value>(ini.integer(row.section, row.readKey, static_cast<int>(defaultValue)));
    }
}

void readRow(const IniFile& ini, const SettingRow& row, AppContext& context) {
    AppContext defaults;
    std::visit([&](auto field) { read(ini, row, field(defaults), field(context)); }, row.field);
}

void readSection(const IniFile& ini, std::string_view section, ReadAt when, AppContext& context) {
    for (const SettingRow& row : settingsTable()) {
        if (row.readAt == when && row.section == section) readRow(ini, row, context);
    }
}

// The checks stand where their keys stand, so that a fault leaves everything behind it unread.
void readMain(const IniFile& ini, AppContext& context) {
    for (const SettingRow& row : settingsTable()) {
        if (row.readAt != ReadAt::Late || std::string_view(row.section) != "Main") continue;
        readRow(ini, row, context);
        if (std::string_view(row.readKey) == "SortMode") sortModeFromIntegral(context.settings.main.sortMode);
        if (std::string_view(row.readKey) == "ViewMode") viewModeFromIntegral(context.settings.main.viewMode);
    }
}

void keepFirstPanelOnly(Settings::Lists& lists) {
    bool taken = false;
    for (bool* shown : {&lists.showMetadataWindow, &lists.showGpsWindow, &lists.showHexaDumpWindow,
                        &lists.showHelpWindow}) {
        *shown = *shown && !taken;
        taken = taken || *shown;
    }
}

// The two strings lie 9 characters apart in one buffer, so that the second overwrites the tail of the first.
void overlapBatchTexts(Settings::Batch& batch) {
    if (!batch.defaultSavePath.isEmpty()) batch.exifUserComment.truncate(kUserCommentOverlap);
}

void readBehindMain(const IniFile& ini, AppContext& context) {
    for (const char* section : kLateSections) {
        if (std::string_view(section) != "Main") readSection(ini, section, ReadAt::Late, context);
    }
    keepFirstPanelOnly(context.settings.lists);
    overlapBatchTexts(context.settings.batch);
}

void correctPaneSizes(Settings::WindowSizes& sizes) {
    if (sizes.holderLeftWidth < 1) sizes.holderLeftWidth = kSideWidth;
    if (sizes.middleListWidth < 1) sizes.middleListWidth = kMiddleWidth;
    if (sizes.holderRightWidth < 1) sizes.holderRightWidth = kRightWidth;
    const std::int64_t sides = std::int64_t{sizes.holderLeftWidth} + sizes.holderRightWidth;
    if (sides < std::int64_t{sizes.mainWidth} - 100) return;
    sizes.holderLeftWidth = kSideWidth;
    sizes.holderRightWidth = kSideWidth;
    sizes.middleListWidth = static_cast<int>(
        std::max<std::int64_t>(std::int64_t{sizes.mainWidth} - kSideWidth - kSideWidth, INT32_MIN));
}

void write(IniFile& ini, const SettingRow& row, bool value) {
    ini.setBoolean(row.section, row.writtenKey, value);
}
void write(IniFile& ini, const SettingRow& row, int value) {
    ini.setInteger(row.section, row.writtenKey, value);
}
void write(IniFile& ini, const SettingRow& row, std::uint32_t value) {
    write(ini, row, static_cast<int>(value));
}
void write(IniFile& ini, const SettingRow& row, const QString& value) {
    ini.setText(row.section, row.writtenKey, value);
}
void write(IniFile& ini, const SettingRow& row, const fs::path& value) {
    ini.setBytes(row.section, row.writtenKey, platform::narrow(value));
}

void writeRow(IniFile& ini, const SettingRow& row, AppContext& context) {
    std::visit([&](auto field) { write(ini, row, field(context)); }, row.field);
}

QString saved(IniFile& ini) {
    return platform::wide(ini.save().reason);
}

bool isMerelyFoundTool(const SettingRow& row, const AppContext& context) {
    for (const ToolPlace& tool : toolPlaces()) {
        if (std::string_view(row.section) != "PATHS" || std::string_view(row.readKey) != tool.key) continue;
        const fs::path& path = context.*tool.path;
        return namedTool(context, tool).empty() &&
               (path.empty() || path == context.installPath / tool.program ||
                path == discoverTool(context, tool.program));
    }
    return false;
}

QString saveSection(AppContext& context, std::string_view section) {
    IniFile ini(context.iniPath);
    for (const SettingRow& row : settingsTable()) {
        if (row.section == section) writeRow(ini, row, context);
    }
    return saved(ini);
}

}  // namespace

void loadLanguage(AppContext& context) {
    context.settings.main.language =
        IniFile(context.iniPath).integer("Main", "Language", Settings().main.language);
}

void LoadEarlySettings(AppContext& context) {
    const IniFile ini(context.iniPath);
    for (const char* section : kEarlySections) readSection(ini, section, ReadAt::Early, context);
    correctPaneSizes(context.settings.windowSizes);
}

void loadWindowPosition(AppContext& context) {
    readSection(IniFile(context.iniPath), kPositionSection, ReadAt::Position, context);
}

void LoadSettings(AppContext& context) {
    const IniFile ini(context.iniPath);
    readMain(ini, context);
    readBehindMain(ini, context);
}

QString loadSettingsOrDefaults(AppContext& context) {
    const IniFile ini(context.iniPath);
    QString fault;
    try {
        readMain(ini, context);
    } catch (const InvalidEnumeration& invalid) {
        fault = QString::fromLatin1(invalid.what());
        readSection(ini, "Main", ReadAt::Late, context);
        Settings::Main& main = context.settings.main;
        if (toString(static_cast<SortMode>(main.sortMode)).isEmpty())
            main.sortMode = static_cast<int>(SortMode::Name);
        if (toString(static_cast<ViewMode>(main.viewMode)).isEmpty())
            main.viewMode = static_cast<int>(ViewMode::Details);
    }
    readBehindMain(ini, context);
    return fault;
}

void loadStartFolder(AppContext& context) {
    readSection(IniFile(context.iniPath), "Nodes", ReadAt::StartFolder, context);
}

QString SaveWindowPosition(AppContext& context, const Settings::WindowPosition& position) {
    context.settings.windowPosition = position;
    return saveSection(context, kPositionSection);
}

QString SaveWindowSizes(AppContext& context, const Settings::WindowSizes& sizes) {
    context.settings.windowSizes = sizes;
    return saveSection(context, kSizesSection);
}

QString SaveSettings(const AppContext& context) {
    AppContext values = context;  // the table's accessors give writable members
    IniFile ini(context.iniPath);
    for (const SettingRow& row : settingsTable()) {
        const std::string_view section = row.section;
        if (section == kPositionSection || section == kSizesSection || isMerelyFoundTool(row, context))
            continue;
        writeRow(ini, row, values);
    }
    return saved(ini);
}

QString WriteIntSetting(std::string_view section, std::string_view key, const fs::path& iniPath, int value) {
    IniFile ini(iniPath);
    ini.setInteger(section, key, value);
    return saved(ini);
}

QString writePathSetting(std::string_view section, std::string_view key, const fs::path& iniPath,
                         const fs::path& value) {
    IniFile ini(iniPath);
    if (!ini.setBytes(section, key, platform::narrow(value)))
        return QStringLiteral("A settings file cannot hold the path %1.").arg(platform::display(value));
    return saved(ini);
}

}  // namespace app
