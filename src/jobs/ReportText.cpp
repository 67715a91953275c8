#include "jobs/ReportText.h"

#include "exiftool/ReportFile.h"
#include "platform/FileAccess.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"

#include <QStringView>
#include <algorithm>
#include <span>
#include <string_view>

namespace jobs {

namespace fs = std::filesystem;

namespace {

/// In lower case.
constexpr std::string_view kToolHead = "---- exiftool";
constexpr std::size_t kBeginning = 256;
constexpr std::size_t kCopiedAtATime = 1 << 16;
constexpr qsizetype kLongestLine = 4000;

bool isToolHead(std::string_view line) {
    return platform::lowerAscii(line.substr(0, kToolHead.size())) == kToolHead;
}

/// Keeps the end of what is added.
void addShown(ReportText& shown, std::string_view line) {
    shown.bytes.append(line) += '\n';
    if (shown.bytes.size() < 2 * kShownReportBytes) return;
    shown.isShort = true;
    shown.bytes.erase(0, shown.bytes.size() - kShownReportBytes);
}

}  // namespace

std::optional<ReportText> filterReport(const app::AppContext& context) {
    if (exiftool::reportSize(context) == 0) return std::nullopt;
    const fs::path copy = context.tempPath / "Metadata.txt";
    std::string copied;
    std::error_code ignored;
    // What stands under that name may be a link; a new file is none.
    fs::remove(copy, ignored);
    bool isCopied = platform::writeFile(copy, platform::WriteMode::Replace, {}) == 0;
    const auto addToCopy = [&](std::size_t atLeast) {
        if (copied.size() < atLeast) return;
        isCopied = isCopied && platform::writeFile(copy, platform::WriteMode::Append, copied) == 0;
        copied.clear();
    };
    ReportText shown;
    platform::forEachLineOfOwnFile(context.reportFile, [&](std::string_view line) {
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (isToolHead(line)) return true;
        copied.append(line) += '\n';
        addToCopy(kCopiedAtATime);
        addShown(shown, line);
        return true;
    });
    addToCopy(0);
    // Half a copy would be taken for the whole.
    if (!isCopied) fs::remove(copy, ignored);
    if (shown.bytes.size() > kShownReportBytes) {
        shown.isShort = true;
        shown.bytes.erase(0, shown.bytes.size() - kShownReportBytes);
    }
    // What is left begins with a whole line.
    if (shown.isShort) shown.bytes.erase(0, std::min(shown.bytes.find('\n') + 1, shown.bytes.size()));
    return shown;
}

std::string reportBeginning(const app::AppContext& context) {
    const platform::RegularFile report(context.reportFile, platform::Links::Refused);
    std::string bytes(kBeginning, '\0');
    bytes.resize(report.readAt(0, std::as_writable_bytes(std::span(bytes))));
    return bytes;
}

QString reportForDisplay(const std::string& bytes, const QString& lineEnd) {
    QString text = platform::wide(bytes);
    for (QChar& unit : text) {
        const bool isControl = unit < u' ' || unit == QChar(0x7F) || unit == QChar::ParagraphSeparator ||
                               unit == QChar::LineSeparator;
        if (isControl && unit != u'\n' && unit != u'\t') unit = QChar::ReplacementCharacter;
    }
    QString shown;
    shown.reserve(text.size());
    qsizetype begin = 0;
    while (begin < text.size()) {
        const qsizetype feed = text.indexOf(u'\n', begin);
        const qsizetype end = feed < 0 ? text.size() : feed;
        const QStringView line = QStringView(text).mid(begin, end - begin);
        shown += line.left(kLongestLine);
        if (line.size() > kLongestLine) shown += lineEnd;
        if (feed >= 0) shown += u'\n';
        begin = end + 1;
    }
    return shown;
}

}  // namespace jobs
