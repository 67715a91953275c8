#include "jobs/ReportText.h"

#include "platform/RegularFile.h"
#include "platform/Text.h"

#include <QStringView>
#include <span>

namespace jobs {

namespace {

constexpr std::size_t kBeginning = 256;
constexpr qsizetype kLongestLine = 4000;

}  // namespace

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
