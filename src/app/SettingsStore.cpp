#include "app/SettingsStore.h"

#include "app/SettingsTable.h"
#include "app/SortMode.h"
#include "app/SpokenText.h"
#include "app/TextNumbers.h"
#include "app/ToolPlaces.h"
#include "app/ViewMode.h"
#include "platform/IniFile.h"
#include "platform/Text.h"

#include <algorithm>
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

constexpr const char* kAddress = "file://";
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

std::string textOf(bool value) {
    return value ? "1" : "0";
}
std::string textOf(int value) {
    return std::to_string(value);
}
std::string textOf(std::uint32_t value) {
    return textOf(static_cast<int>(value));
}
std::string textOf(const QString& value) {
    return platform::narrow(value);
}
std::string textOf(const fs::path& value) {
    return platform::narrow(value);
}

/// The row's value as the file holds it.
std::string textOf(const SettingRow& row, AppContext& context) {
    return std::visit([&](auto field) { return textOf(field(context)); }, row.field);
}

std::optional<LoadedSetting>& loadedOf(const SettingRow& row, AppContext& context) {
    const auto table = settingsTable();
    context.loadedSettings.resize(table.size());
    return context.loadedSettings[static_cast<std::size_t>(&row - table.data())];
}

/// Behind all corrections, since a corrected value is no change of the user's.
void noteLoaded(const IniFile& ini, ReadAt when, AppContext& context) {
    for (const SettingRow& row : settingsTable()) {
        const bool isNew = !loadedOf(row, context);
        const bool isWrittenOnly = row.readAt == ReadAt::Never && (isNew || when == ReadAt::Late);
        if (row.readAt != when && !isWrittenOnly) continue;
        loadedOf(row, context) = LoadedSetting{textOf(row, context), ini.find(row.section, row.writtenKey)};
    }
}

bool isChanged(const SettingRow& row, AppContext& context) {
    const std::optional<LoadedSetting>& loaded = loadedOf(row, context);
    return !loaded || loaded->value != textOf(row, context);
}

/// Whether the row, or one that makes no sense without it, has changed here.
bool isChangedWithItsKin(const SettingRow& row, AppContext& context) {
    for (const char* whole : {kPositionSection, kSizesSection, "Lists"}) {
        if (std::string_view(row.section) != whole) continue;
        const auto table = settingsTable();
        return std::any_of(table.begin(), table.end(), [&](const SettingRow& other) {
            return std::string_view(other.section) == whole && isChanged(other, context);
        });
    }
    return isChanged(row, context);
}

void writeRow(IniFile& ini, const SettingRow& row, AppContext& context) {
    const std::string text = textOf(row, context);
    if (isChangedWithItsKin(row, context))
        ini.setBytes(row.section, row.writtenKey, text);
    else
        ini.setBytesUnlessChanged(row.section, row.writtenKey, text, loadedOf(row, context)->inFile);
}

QString saved(IniFile& ini) {
    return platform::wide(ini.save().reason);
}

/// What the file holds now as it is here is where the next save starts from. What another program has changed
/// stays its change.
void noteSaved(const IniFile& ini, AppContext& context) {
    for (const SettingRow& row : settingsTable()) {
        const std::string text = textOf(row, context);
        const std::optional<std::string> inFile = ini.find(row.section, row.writtenKey);
        if (inFile == text) loadedOf(row, context) = LoadedSetting{text, inFile};
    }
}

QString savedAndNoted(IniFile& ini, AppContext& context) {
    const QString problem = saved(ini);
    if (problem.isEmpty()) noteSaved(ini, context);
    return problem;
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
    return savedAndNoted(ini, context);
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
    noteLoaded(ini, ReadAt::Early, context);
}

void loadWindowPosition(AppContext& context) {
    const IniFile ini(context.iniPath);
    readSection(ini, kPositionSection, ReadAt::Position, context);
    noteLoaded(ini, ReadAt::Position, context);
}

void LoadSettings(AppContext& context) {
    const IniFile ini(context.iniPath);
    readMain(ini, context);
    readBehindMain(ini, context);
    noteLoaded(ini, ReadAt::Late, context);
}

QString loadSettingsOrDefaults(AppContext& context) {
    const IniFile ini(context.iniPath);
    QString fault;
    try {
        readMain(ini, context);
    } catch (const InvalidEnumeration& invalid) {
        // A missing key ends the designed load as a wrong number does, but is no damage.
        const QString told = QString::fromLatin1(invalid.what());
        if (ini.find("Main", told.section(u':', 0, 0).toStdString())) fault = told;
        readSection(ini, "Main", ReadAt::Late, context);
        Settings::Main& main = context.settings.main;
        if (toString(static_cast<SortMode>(main.sortMode)).isEmpty())
            main.sortMode = static_cast<int>(SortMode::Name);
        if (toString(static_cast<ViewMode>(main.viewMode)).isEmpty())
            main.viewMode = static_cast<int>(ViewMode::Details);
    }
    readBehindMain(ini, context);
    noteLoaded(ini, ReadAt::Late, context);
    if (ini.loadStatus() == IniFile::LoadStatus::Unreadable) fault = platform::wide(ini.loadReason());
    return fault;
}

void loadStartFolder(AppContext& context) {
    const IniFile ini(context.iniPath);
    // Not cut as other texts are: a part of a path leads nowhere.
    context.settings.startFolder = platform::wide(ini.find("Nodes", "1").value_or(std::string()));
    noteLoaded(ini, ReadAt::StartFolder, context);
}

QString startFolderText(const fs::path& folder) {
    const QString text = platform::display(folder);
    const auto isControl = [](QChar character) { return character.category() == QChar::Other_Control; };
    const bool isPlain = platform::narrow(text) == folder.native() && text == text.trimmed() &&
                         !text.endsWith(u'"') && !text.endsWith(u'\'') &&
                         std::ranges::none_of(text, isControl);
    if (isPlain) return text;
    return QLatin1StringView(kAddress) +
           QString::fromLatin1(QByteArray::fromStdString(folder.native()).toPercentEncoding("/"));
}

fs::path startFolderOf(const QString& text) {
    const QLatin1StringView address(kAddress);
    if (!text.startsWith(address)) return platform::pathFromText(text);
    return QByteArray::fromPercentEncoding(text.sliced(address.size()).toLatin1()).toStdString();
}

void takeAsLoaded(AppContext& context, std::string_view section) {
    for (const SettingRow& row : settingsTable()) {
        if (row.section != section) continue;
        if (std::optional<LoadedSetting>& loaded = loadedOf(row, context))
            loaded->value = textOf(row, context);
    }
}

QString SaveWindowPosition(AppContext& context, const Settings::WindowPosition& position) {
    context.settings.windowPosition = position;
    return saveSection(context, kPositionSection);
}

QString SaveWindowSizes(AppContext& context, const Settings::WindowSizes& sizes) {
    context.settings.windowSizes = sizes;
    return saveSection(context, kSizesSection);
}

QString SaveSettings(AppContext& context) {
    IniFile ini(context.iniPath);
    for (const SettingRow& row : settingsTable()) {
        const std::string_view section = row.section;
        if (section == kPositionSection || section == kSizesSection || isMerelyFoundTool(row, context))
            continue;
        writeRow(ini, row, context);
    }
    return savedAndNoted(ini, context);
}

QString WriteIntSetting(std::string_view section, std::string_view key, const fs::path& iniPath, int value) {
    IniFile ini(iniPath);
    ini.setInteger(section, key, value);
    return saved(ini);
}

QString saveToolPath(AppContext& context, std::string_view key, const fs::path& tool) {
    const QString problem = writePathSetting("PATHS", key, context.iniPath, tool);
    if (problem.isEmpty()) noteSaved(IniFile(context.iniPath), context);
    return problem;
}

QString writePathSetting(std::string_view section, std::string_view key, const fs::path& iniPath,
                         const fs::path& value) {
    IniFile ini(iniPath);
    if (!ini.setBytes(section, key, platform::narrow(value)))
        return platform::wide(spokenText(text::kPathNotHeld, {platform::display(value)}));
    return saved(ini);
}

}  // namespace app
