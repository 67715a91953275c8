#pragma once

#include "app/AppContext.h"

#include <QString>
#include <cstdint>
#include <filesystem>
#include <span>
#include <variant>

namespace app {

/// The moment at which a key of the settings file is read.
enum class ReadAt {
    Early,        ///< before the window class exists: colours, dark mode, pane sizes
    Position,     ///< just before the main window is made
    Late,         ///< as the first step of building the window's contents
    StartFolder,  ///< later in the same step
    Never,        ///< written only
};

/// Where in the context a key's value lives. The type of the member says how it is stored: a bool as 0 or 1
/// (read as true when it is not 0), numbers in decimal, colours as 0xBBGGRR numbers, a path only when it is
/// not empty.
using SettingField =
    std::variant<bool& (*)(AppContext&), int& (*)(AppContext&), std::uint32_t& (*)(AppContext&),
                 QString& (*)(AppContext&), std::filesystem::path& (*)(AppContext&)>;

/// One key of the settings file. An empty name on one side means that the key is not read, or not written.
/// The default of a missing key is the initialiser of its member.
struct SettingRow {
    const char* section;
    const char* readKey;
    const char* writtenKey;
    ReadAt readAt;
    SettingField field;
};

/// Room for a string setting, its terminator included.
inline constexpr int kStringSettingCapacity = 260;

/// All keys, in the order in which they are saved; a section can come more than once.
std::span<const SettingRow> settingsTable();

}  // namespace app
