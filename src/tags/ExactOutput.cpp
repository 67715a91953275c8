#include "tags/ExactOutput.h"

#include "platform/FileAccess.h"
#include "platform/Text.h"

#include <QRegularExpression>
#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>

namespace tags {

namespace {

struct Escape {
    char letter;
    char byte;
};

constexpr Escape kEscapes[] = {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'0', '\0'}, {'\\', '\\'}};
constexpr int kHexadecimal = 16;

/// The byte of `\xHH` behind its backslash; takes the digits away.
char takeNumber(std::string_view& rest) {
    unsigned number = 0;
    const std::size_t digits = std::min<std::size_t>(2, rest.size());
    std::from_chars(rest.data(), rest.data() + digits, number, kHexadecimal);
    rest.remove_prefix(digits);
    return static_cast<char>(number);
}

std::string unescaped(std::string_view rest) {
    std::string bytes;
    while (!rest.empty()) {
        const char byte = rest.front();
        rest.remove_prefix(1);
        if (byte != '\\' || rest.empty()) {
            bytes += byte;
            continue;
        }
        const char letter = rest.front();
        rest.remove_prefix(1);
        const auto* const known = std::ranges::find(kEscapes, letter, &Escape::letter);
        bytes += letter == 'x' ? takeNumber(rest) : known != std::end(kEscapes) ? known->byte : letter;
    }
    return bytes;
}

QStringList entriesOf(std::string_view value) {
    const std::string bytes = unescaped(value);
    std::string_view rest = bytes;
    QStringList entries;
    for (std::size_t at = rest.find(kEntrySeparator); at != rest.npos; at = rest.find(kEntrySeparator)) {
        entries.append(platform::exactText(rest.substr(0, at)));
        rest.remove_prefix(at + kEntrySeparator.size());
    }
    entries.append(platform::exactText(rest));
    return entries;
}

}  // namespace

std::optional<ExactLine> exactLine(std::string_view line) {
    const std::size_t groupEnd = line.find("] ");
    if (!line.starts_with('[') || groupEnd == line.npos) return std::nullopt;
    const std::size_t nameBegin = groupEnd + 2;
    const std::size_t nameEnd = line.find(": ", nameBegin);
    if (nameEnd == line.npos) return std::nullopt;
    return ExactLine{platform::wide(line.substr(1, groupEnd - 1)),
                     platform::wide(line.substr(nameBegin, nameEnd - nameBegin)),
                     entriesOf(line.substr(nameEnd + 2))};
}

bool forEachExactLine(const std::filesystem::path& outputFile,
                      const std::function<void(const ExactLine&)>& call) {
    return platform::forEachLineOfOwnFile(outputFile, [&](std::string_view bytes) {
        if (const std::optional<ExactLine> line = exactLine(bytes)) call(*line);
        return true;
    });
}

std::optional<NameOfLanguage> splitLanguage(QStringView name) {
    static const QRegularExpression form(
        QStringLiteral(R"(^\w+-((?:[a-z]{2,3}|[xi])(?:-[A-Za-z0-9]{1,8})*)$)"));
    const qsizetype hyphen = name.indexOf(u'-');
    if (hyphen < 0 || !form.match(name.toString()).hasMatch()) return std::nullopt;
    return NameOfLanguage{name.first(hyphen), name.sliced(hyphen + 1)};
}

}  // namespace tags
