#include "tags/LabelFiles.h"

#include "platform/Text.h"

#include <QResource>
#include <charconv>

static void initLabels() {
    Q_INIT_RESOURCE(tag_labels);
}

namespace tags {

namespace {

QByteArray textOf(const char* resource) {
    initLabels();
    return QResource(QLatin1String(resource)).uncompressedData();
}

/// The text up to the separator, which is taken off the rest.
std::string_view take(std::string_view& rest, char separator) {
    const std::size_t end = rest.find(separator);
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return taken;
}

int numberOf(std::string_view digits) {
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

LabelFiles::LabelFiles() : tagsText_(textOf(":/labels/tags.tsv")), listsText_(textOf(":/labels/lists.tsv")) {
    std::string_view table;
    for (std::string_view rest = platform::bytesOf(tagsText_); !rest.empty();) {
        std::string_view line = take(rest, '\n');
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '@') {
            table = line.substr(1);
            continue;
        }
        const auto id = static_cast<std::size_t>(numberOf(take(line, '\t')));
        if (id >= tags_.size()) tags_.resize(id + 1);
        tags_[id] = {table, line, true};
    }
    for (std::string_view rest = platform::bytesOf(listsText_); !rest.empty();) {
        const std::string_view line = take(rest, '\n');
        if (!line.starts_with('@')) continue;
        const std::size_t end = rest.find("\n@");
        lists_.push_back(rest.substr(0, end == std::string_view::npos ? rest.size() : end + 1));
        rest.remove_prefix(lists_.back().size());
    }
}

std::optional<TagFacts> LabelFiles::facts(std::uint32_t id) const {
    if (id >= tags_.size() || !tags_[id].known) return std::nullopt;
    TagFacts facts;
    facts.table = tags_[id].table;
    std::string_view rest = tags_[id].cells;
    facts.label = take(rest, '\t');
    facts.tagId = take(rest, '\t');
    facts.format = take(rest, '\t');
    facts.count = take(rest, '\t');
    facts.flags = take(rest, '\t');
    facts.list = numberOf(take(rest, '\t'));
    facts.topic = take(rest, '\t');
    facts.note = take(rest, '\t');
    return facts;
}

ValueList LabelFiles::list(int number) const {
    ValueList list;
    if (number < 1 || static_cast<std::size_t>(number) > lists_.size()) return list;
    for (std::string_view rest = lists_[static_cast<std::size_t>(number) - 1]; !rest.empty();) {
        std::string_view line = take(rest, '\n');
        const char kind = line.empty() ? '\0' : line.front();
        line.remove_prefix(kind == '\0' ? 0 : 1);
        if (kind == '+') list.left = numberOf(line);
        if (kind != '=') continue;
        const std::string_view code = take(line, '\t');
        list.values.push_back({code, line});
    }
    return list;
}

LabelTranslations::LabelTranslations(const char* resource) : text_(textOf(resource)) {
    for (std::string_view rest = platform::bytesOf(text_); !rest.empty();) {
        const std::size_t end = rest.find("\n@");
        std::string_view section = rest.substr(0, end == std::string_view::npos ? rest.size() : end + 1);
        rest.remove_prefix(section.size());
        if (!section.starts_with('@')) continue;
        const std::size_t nameEnd = section.find_first_of("\t\n");
        const std::string_view name = section.substr(1, nameEnd - 1);
        section.remove_prefix(nameEnd + (section[nameEnd] == '\t' ? 1 : 0));
        tags_.emplace(name, section);
    }
}

std::string_view LabelTranslations::label(std::string_view tagName) const {
    const auto found = tags_.find(tagName);
    return found == tags_.end() ? std::string_view() : found->second.substr(0, found->second.find('\n'));
}

std::unordered_map<std::string_view, std::string_view> LabelTranslations::values(
    std::string_view tagName) const {
    std::unordered_map<std::string_view, std::string_view> texts;
    const auto found = tags_.find(tagName);
    if (found == tags_.end()) return texts;
    for (std::string_view rest = found->second; !rest.empty();) {
        std::string_view line = take(rest, '\n');
        if (!line.starts_with('=')) continue;
        line.remove_prefix(1);
        const std::string_view english = take(line, '\t');
        texts.emplace(english, line);
    }
    return texts;
}

}  // namespace tags
