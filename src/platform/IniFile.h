#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// A settings file of sections and "key=value" lines, read and written with the rules of the classic
/// private-profile functions: sections and keys are found blind to (ASCII) case, the last of several equal
/// keys counts, blanks and one pair of quotes round a value do not belong to it, lines beginning with ';' are
/// comments. Everything that is not understood stays where it is. Text is UTF-8; a file in UTF-16 with its
/// mark is read, and becomes UTF-8 when it is saved.
///
/// Values that are set are held until save(), which reads the file anew, puts in only what was set here (so
/// that two running programs do not undo each other, also when they save at the same moment), and replaces
/// the file by a rename: whenever the program is killed, the file is either the old or the new one, whole.
/// One thread at a time.
class IniFile {
 public:
    enum class LoadStatus {
        Loaded,
        Missing,     ///< no such file: every answer is the default
        Unreadable,  ///< no permission, no regular file, or far too big for settings: every answer is the
                     ///< default
    };

    struct [[nodiscard]] SaveResult {
        bool succeeded = true;
        std::string reason;  ///< for people, when it failed
        explicit operator bool() const { return succeeded; }
    };

    /// A bigger file is no settings file. It is not read; saving moves it aside, with ".unreadable" behind
    /// its name.
    static constexpr std::size_t kMaximumBytes = std::size_t{4} * 1024 * 1024;

    /// Reads the file at once.
    explicit IniFile(std::filesystem::path file);

    const std::filesystem::path& path() const { return path_; }
    LoadStatus loadStatus() const { return loadStatus_; }
    /// For people, when it is Unreadable; else empty.
    const std::string& loadReason() const { return loadReason_; }

    /// The value as it stands, without surrounding blanks and quotes. Nothing when there is no such key; a
    /// key with nothing behind its "=" has an empty value.
    std::optional<std::string> find(std::string_view section, std::string_view key) const;

    /// The number at the value's beginning: blanks, a sign, decimal digits or 0x and hexadecimal ones; what
    /// follows is ignored and a number too big wraps to 32 bits. A value without a number is 0, an empty one
    /// the default.
    int integer(std::string_view section, std::string_view key, int defaultValue) const;

    /// Any number but 0.
    bool boolean(std::string_view section, std::string_view key, bool defaultValue) const;

    /// At most roomForCharacters - 1 UTF-16 units, like a buffer of that size with its closing zero.
    QString text(std::string_view section, std::string_view key, const QString& defaultValue = {},
                 qsizetype roomForCharacters = 32768) const;

    /// Each of these is false, and changes nothing, when the file could not give it back: a section, key or
    /// value with a line end or a zero byte, a key with "=" and the like. Setting what is already there is no
    /// change.
    bool setBytes(std::string_view section, std::string_view key, std::string_view value);
    bool setText(std::string_view section, std::string_view key, const QString& value);
    bool setInteger(std::string_view section, std::string_view key, int value);
    bool setBoolean(std::string_view section, std::string_view key, bool value);

    /// setBytes() for a value that this program has not changed: save() leaves it out when the file no longer
    /// holds `before` for the key (nothing: no such key), because another program has changed it. A file that
    /// is gone gets it.
    bool setBytesUnlessChanged(std::string_view section, std::string_view key, std::string_view value,
                               const std::optional<std::string>& before);

    bool hasChanges() const { return !changes_.empty(); }

    /// Writes what was set since the last successful save; does nothing when that is nothing. On failure the
    /// file is as it was, and the changes are kept for another try.
    SaveResult save();

 private:
    struct Section {
        std::string header;              ///< the line itself; empty for what stands before the first section
        std::vector<std::string> lines;  ///< with their line ends
    };
    struct Place {
        std::size_t section;
        std::size_t line;
    };
    struct Change {
        std::string section;
        std::string key;
        std::string value;
        bool isConditional = false;
        std::optional<std::string> before = std::nullopt;  ///< what a conditional one replaces
    };
    class Content {
     public:
        explicit Content(std::string_view bytes = {});
        std::optional<std::string_view> rawValue(std::string_view section, std::string_view key) const;
        bool holds(std::string_view section, std::string_view key,
                   const std::optional<std::string>& value) const;
        void set(const Change& change);
        std::string bytes() const;

     private:
        void addLine(std::string_view line);
        std::size_t sectionFor(std::string_view name);

        std::vector<Section> sections_;
        std::unordered_map<std::string, std::size_t> sectionByName_;  ///< folded name, last of its name
        std::unordered_map<std::string, Place> entries_;              ///< folded section and key
        std::string lineEnd_;
    };
    struct ReadFile;

    bool put(Change change);
    static ReadFile read(const std::filesystem::path& file);

    std::filesystem::path path_;
    LoadStatus loadStatus_ = LoadStatus::Missing;
    std::string loadReason_;
    Content content_;
    std::vector<Change> changes_;
};

}  // namespace platform
