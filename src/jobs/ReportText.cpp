#include "jobs/ReportText.h"

#include "platform/Text.h"

#include <QStringView>
#include <algorithm>
#include <fstream>
#include <string_view>

namespace jobs {

namespace fs = std::filesystem;

namespace {

/// In lower case.
constexpr std::string_view kToolHead = "---- exiftool";
constexpr std::size_t kBeginning = 256;
constexpr qsizetype kLongestLine = 4000;

bool isToolHead(std::string_view line) {
    return platform::lowerAscii(line.substr(0, kToolHead.size())) == kToolHead;
}

/// Keeps the end of what is added.
void addShown(ReportText& shown, const std::string& line) {
    shown.bytes.append(line) += '\n';
    if (shown.bytes.size() < 2 * kShownReportBytes) return;
    shown.isShort = true;
    shown.bytes.erase(0, shown.bytes.size() - kShownReportBytes);
}

}  // namespace

std::optional<ReportText> filterReport(const app::AppContext& context) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(context.reportFile, error);
    if (error || size == 0) return std::nullopt;
    std::ifstream report(context.reportFile, std::ios::binary);
    // What stands under that name may be a link; a new file is none.
    fs::remove(context.tempPath / "Metadata.txt", error);
    std::ofstream copy(context.tempPath / "Metadata.txt", std::ios::binary | std::ios::trunc);
    ReportText shown;
    for (std::string line; std::getline(report, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (isToolHead(line)) continue;
        copy << line << '\n';
        addShown(shown, line);
    }
    if (shown.bytes.size() > kShownReportBytes) {
        shown.isShort = true;
        shown.bytes.erase(0, shown.bytes.size() - kShownReportBytes);
    }
    // What is left begins with a whole line.
    if (shown.isShort) shown.bytes.erase(0, std::min(shown.bytes.find('\n') + 1, shown.bytes.size()));
    return shown;
}

std::string reportBeginning(const app::AppContext& context) {
    std::ifstream report(context.reportFile, std::ios::binary);
    std::string bytes(kBeginning, '\0');
    report.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(report.gcount(), 0)));
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
