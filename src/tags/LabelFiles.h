#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The data of the label library as it lies compressed in the program. The texts are UTF-8 and live as long
/// as the object that gives them.
namespace tags {

/// What ExifTool's tables know of a tag. All but the label may be empty.
struct TagFacts {
    std::string_view label;   ///< English; empty for a tag without a name
    std::string_view table;   ///< "Exif::Main"
    std::string_view tagId;   ///< in that table: a decimal number or a name
    std::string_view format;  ///< "int16u", "lang-alt"
    std::string_view count;   ///< how many numbers, where there are several
    std::string_view flags;   ///< letters, see LabelFlag
    std::string_view topic;   ///< ExifTool's family 2 group: "Image"
    std::string_view note;    ///< an English sentence
    int list = 0;             ///< number of the list of values, 0 when it has none
};

namespace LabelFlag {
constexpr char kSeveralValues = 'L';
constexpr char kPermanent = 'P';
constexpr char kAvoid = 'A';
constexpr char kUnsafe = 'U';
constexpr char kMandatory = 'M';
}  // namespace LabelFlag

struct ListValue {
    std::string_view code;  ///< as ExifTool takes it for -TAG#=
    std::string_view text;  ///< as ExifTool prints it in English
};

struct ValueList {
    std::vector<ListValue> values;
    int left = 0;  ///< how many more there are that the library does not hold
};

/// Labels in English, facts and lists. Reading takes some milliseconds.
class LabelFiles {
 public:
    LabelFiles();
    LabelFiles(const LabelFiles&) = delete;
    LabelFiles& operator=(const LabelFiles&) = delete;

    /// Nothing when the library lacks the id.
    std::optional<TagFacts> facts(std::uint32_t id) const;

    /// An empty list for a number that is not used.
    ValueList list(int number) const;

 private:
    struct TagLine {
        std::string_view table;
        std::string_view cells;  ///< from the label on
        bool known = false;
    };

    QByteArray tagsText_;
    QByteArray listsText_;
    std::vector<TagLine> tags_;            ///< by id
    std::vector<std::string_view> lists_;  ///< the lines of each list, by number - 1
};

/// Labels and texts of values in a language other than English.
class LabelTranslations {
 public:
    explicit LabelTranslations(const char* resource);
    LabelTranslations(const LabelTranslations&) = delete;
    LabelTranslations& operator=(const LabelTranslations&) = delete;

    /// Empty when the language has none.
    std::string_view label(std::string_view tagName) const;

    /// By the English text; no entry where the language has none.
    std::unordered_map<std::string_view, std::string_view> values(std::string_view tagName) const;

 private:
    QByteArray text_;
    std::unordered_map<std::string_view, std::string_view>
        tags_;  ///< by tag name: its label and what follows
};

}  // namespace tags
