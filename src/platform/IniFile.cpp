#include "platform/IniFile.h"

#include "platform/AtomicFile.h"
#include "platform/Text.h"

#include <QStringDecoder>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace platform {

namespace {

constexpr std::string_view kBlanks = " \t\v\f\r";

/// A zero byte cannot be part of a name that is asked for, so it separates the two.
std::string entryName(std::string_view section, std::string_view key) {
    std::string name = lowerAscii(section);
    name += '\0';
    name += lowerAscii(key);
    return name;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == '"' || value.front() == '\'');
}

std::string_view withoutLineEnd(std::string_view line) {
    if (line.ends_with('\n')) line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::optional<std::string_view> sectionName(std::string_view line) {
    const std::string_view text = trimmed(withoutLineEnd(line));
    if (!text.starts_with('[')) return std::nullopt;
    const std::size_t close = text.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return text.substr(1, close - 1);
}

bool canStandInFile(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

bool canBeSection(std::string_view name) {
    return canStandInFile(name) && name.find(']') == std::string_view::npos;
}

bool canBeKey(std::string_view name) {
    return canStandInFile(name) && !name.empty() && trimmed(name).size() == name.size() &&
           name.find('=') == std::string_view::npos && !name.starts_with(';') && !name.starts_with('[');
}

/// Reading strips blanks and quotes, so a value that has some of its own gets a pair to lose.
std::string guarded(std::string_view value) {
    if (trimmed(value).size() == value.size() && !isQuoted(value)) return std::string(value);
    return '"' + std::string(value) + '"';
}

int digitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 99;
}

int leadingNumber(std::string_view text) {
    text = trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    unsigned base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    std::uint32_t number = 0;
    for (const char c : text) {
        const auto digit = static_cast<unsigned>(digitValue(c));
        if (digit >= base) break;
        number = number * base + digit;
    }
    return static_cast<int>(negative ? 0U - number : number);
}

/// UTF-8 without a mark, from a file in UTF-8 or in UTF-16 with its mark.
std::string decoded(std::string bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF"sv)) return bytes.substr(3);
    if (!bytes.starts_with("\xFF\xFE"sv) && !bytes.starts_with("\xFE\xFF"sv)) return bytes;
    QStringDecoder decoder(QStringDecoder::Utf16);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return narrow(text);
}

}  // namespace

IniFile::Content::Content(std::string_view bytes) : sections_(1), lineEnd_("\n") {
    const std::size_t firstEnd = bytes.find('\n');
    if (firstEnd != std::string_view::npos && firstEnd > 0 && bytes[firstEnd - 1] == '\r') lineEnd_ = "\r\n";
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::size_t length = end == std::string_view::npos ? bytes.size() : end + 1;
        addLine(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
}

void IniFile::Content::addLine(std::string_view line) {
    if (const auto name = sectionName(line)) {
        sections_.push_back({std::string(line), {}});
        sectionByName_[lowerAscii(*name)] = sections_.size() - 1;
        return;
    }
    Section& section = sections_.back();
    section.lines.emplace_back(line);
    const std::size_t equals = line.find('=');
    if (sections_.size() == 1 || equals == std::string_view::npos) return;
    const std::string_view key = trimmed(line.substr(0, equals));
    if (key.empty() || key.starts_with(';')) return;
    entries_[entryName(*sectionName(section.header), key)] = {sections_.size() - 1, section.lines.size() - 1};
}

std::optional<std::string_view> IniFile::Content::rawValue(std::string_view section,
                                                           std::string_view key) const {
    const auto found = entries_.find(entryName(section, key));
    if (found == entries_.end()) return std::nullopt;
    const std::string_view line = sections_[found->second.section].lines[found->second.line];
    std::string_view value = trimmed(withoutLineEnd(line.substr(line.find('=') + 1)));
    if (isQuoted(value)) value = value.substr(1, value.size() - 2);
    return value;
}

bool IniFile::Content::holds(std::string_view section, std::string_view key,
                             const std::optional<std::string>& value) const {
    const auto found = rawValue(section, key);
    return found.has_value() == value.has_value() && (!found || *found == *value);
}

/// Index of the section of that name, put at the end of the file when there is none.
std::size_t IniFile::Content::sectionFor(std::string_view name) {
    const auto [place, isNew] = sectionByName_.try_emplace(lowerAscii(name), sections_.size());
    if (!isNew) return place->second;
    Section& last = sections_.back();
    std::string* lastLine = last.lines.empty() ? &last.header : &last.lines.back();
    if (!lastLine->empty() && !lastLine->ends_with('\n')) *lastLine += lineEnd_;
    if (!lastLine->empty() && !trimmed(withoutLineEnd(*lastLine)).empty()) last.lines.push_back(lineEnd_);
    sections_.push_back({'[' + std::string(name) + ']' + lineEnd_, {}});
    return place->second;
}

void IniFile::Content::set(const Change& change) {
    const std::string name = entryName(change.section, change.key);
    if (const auto found = entries_.find(name); found != entries_.end()) {
        std::string& line = sections_[found->second.section].lines[found->second.line];
        const std::string end(line.substr(withoutLineEnd(line).size()));
        line = line.substr(0, line.find('=') + 1) + guarded(change.value) + end;
        return;
    }
    const std::size_t index = sectionFor(change.section);
    Section& section = sections_[index];
    std::size_t position = section.lines.size();
    while (position > 0 && trimmed(withoutLineEnd(section.lines[position - 1])).empty()) --position;
    std::string& before = position == 0 ? section.header : section.lines[position - 1];
    if (!before.ends_with('\n')) before += lineEnd_;
    // Only blank lines stand behind this position, so no entry's place changes.
    section.lines.insert(section.lines.begin() + static_cast<std::ptrdiff_t>(position),
                         change.key + '=' + guarded(change.value) + lineEnd_);
    entries_[name] = {index, position};
}

std::string IniFile::Content::bytes() const {
    std::string all;
    for (const Section& section : sections_) {
        all += section.header;
        for (const std::string& line : section.lines) all += line;
    }
    return all;
}

struct IniFile::ReadFile {
    LoadStatus status = LoadStatus::Unreadable;
    bool isTooBig = false;
    std::string reason;
    std::string bytes;
};

IniFile::ReadFile IniFile::read(const std::filesystem::path& file) {
    ReadFile result;
    FileContent content = readRegularFile(file, kMaximumBytes);
    switch (content.status) {
        case FileContent::Status::Read:
            result.status = LoadStatus::Loaded;
            result.bytes = decoded(std::move(content.bytes));
            break;
        case FileContent::Status::Missing:
            result.status = LoadStatus::Missing;
            break;
        case FileContent::Status::TooBig:
            result.isTooBig = true;
            break;
        case FileContent::Status::Failed:
            break;
    }
    result.reason = std::move(content.reason);
    return result;
}

IniFile::IniFile(std::filesystem::path file) : path_(std::move(file)) {
    const ReadFile now = read(path_);
    loadStatus_ = now.status;
    if (now.status == LoadStatus::Unreadable) loadReason_ = now.reason;
    content_ = Content(now.bytes);
}

std::optional<std::string> IniFile::find(std::string_view section, std::string_view key) const {
    const auto value = content_.rawValue(section, key);
    return value ? std::optional<std::string>(*value) : std::nullopt;
}

int IniFile::integer(std::string_view section, std::string_view key, int defaultValue) const {
    const auto value = content_.rawValue(section, key);
    return value && !value->empty() ? leadingNumber(*value) : defaultValue;
}

bool IniFile::boolean(std::string_view section, std::string_view key, bool defaultValue) const {
    return integer(section, key, defaultValue ? 1 : 0) != 0;
}

QString IniFile::text(std::string_view section, std::string_view key, const QString& defaultValue,
                      qsizetype roomForCharacters) const {
    const auto value = content_.rawValue(section, key);
    return (value ? wide(*value) : defaultValue).left(std::max<qsizetype>(roomForCharacters - 1, 0));
}

bool IniFile::setBytes(std::string_view section, std::string_view key, std::string_view value) {
    return put({std::string(section), std::string(key), std::string(value)});
}

bool IniFile::setBytesUnlessChanged(std::string_view section, std::string_view key, std::string_view value,
                                    const std::optional<std::string>& before) {
    return put({std::string(section), std::string(key), std::string(value), true, before});
}

bool IniFile::put(Change change) {
    if (!canBeSection(change.section) || !canBeKey(change.key) || !canStandInFile(change.value)) return false;
    if (content_.rawValue(change.section, change.key) == change.value) return true;
    content_.set(change);
    changes_.push_back(std::move(change));
    return true;
}

bool IniFile::setText(std::string_view section, std::string_view key, const QString& value) {
    return setBytes(section, key, narrow(value));
}

bool IniFile::setInteger(std::string_view section, std::string_view key, int value) {
    return setBytes(section, key, std::to_string(value));
}

bool IniFile::setBoolean(std::string_view section, std::string_view key, bool value) {
    return setInteger(section, key, value ? 1 : 0);
}

IniFile::SaveResult IniFile::save() {
    if (changes_.empty()) return {};
    FileReplacement replacement(path_);
    if (replacement.error() != 0) return {false, std::system_category().message(replacement.error())};
    const ReadFile now = read(path_);
    if (now.isTooBig) {
        std::filesystem::path aside = path_;
        aside += ".unreadable";
        std::error_code error;
        std::filesystem::rename(path_, aside, error);
        if (error) return {false, error.message()};
    } else if (now.status == LoadStatus::Unreadable) {
        return {false, now.reason};
    }
    Content fresh(now.bytes);
    // A file that is gone says of no key that somebody has changed it.
    const bool isThere = now.status == LoadStatus::Loaded;
    for (const Change& change : changes_) {
        const bool isOthers =
            isThere && change.isConditional && !fresh.holds(change.section, change.key, change.before);
        if (!isOthers) fresh.set(change);
    }
    if (const int failure = replacement.commit(fresh.bytes()); failure != 0)
        return {false, std::system_category().message(failure)};
    content_ = std::move(fresh);
    changes_.clear();
    loadStatus_ = LoadStatus::Loaded;
    loadReason_.clear();
    return {};
}

}  // namespace platform
