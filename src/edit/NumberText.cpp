#include "edit/NumberText.h"

#include <QRegularExpression>
#include <cstdint>
#include <limits>

namespace edit {

namespace {

constexpr qsizetype kLongestAddition = 255;

/// The text with a mark in the place of each number. A sign belongs to its number only where it cannot be a
/// hyphen between two.
QString formOf(QStringView text) {
    static const QRegularExpression number(
        QStringLiteral(R"((?:(?<![\w.)])[+-])?\d+(?:\.\d*)?(?:e[+-]?\d+)?)"),
        QRegularExpression::CaseInsensitiveOption);
    return text.toString().replace(number, QStringLiteral("#"));
}

bool hasFormOf(QStringView text, QStringView before) {
    const QString form = formOf(before.trimmed());
    return form.contains(u'#') && formOf(text) == form;
}

std::optional<QString> checked(QStringView text, QStringView before, const QRegularExpression& number) {
    const QStringView bare = text.trimmed();
    if (bare.isEmpty() || number.match(bare.toString()).hasMatch() || hasFormOf(bare, before) ||
        bare == before.trimmed())
        return bare.toString();
    return std::nullopt;
}

}  // namespace

QString DesignedInteger(const QString& text) {
    if (text.isEmpty()) return {};
    constexpr std::uint64_t kLimit = std::numeric_limits<std::uint32_t>::max();
    std::uint64_t number = 0;
    for (const QChar character : text.mid(text.indexOf(QRegularExpression(QStringLiteral("[^ ]"))))) {
        if (character < u'0' || character > u'9') break;
        number = number * 10 + static_cast<std::uint64_t>(character.unicode() - u'0');
        if (number > kLimit) return QStringLiteral("0");
    }
    return QString::number(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
}

std::optional<QString> CorrectedInteger(QStringView text, QStringView before) {
    static const QRegularExpression number(QStringLiteral(R"(^(?:[+-]?\d+|0x[0-9a-f]+)$)"),
                                           QRegularExpression::CaseInsensitiveOption);
    return checked(text, before, number);
}

QString DesignedRational(const QString& before, const QString& text) {
    return before + text.left(kLongestAddition);
}

std::optional<QString> CorrectedRational(QStringView text, QStringView before) {
    static const QRegularExpression number(
        QStringLiteral(R"(^(?:[+-]?(?:\d+\.?\d*|\.\d+)(?:e[+-]?\d+)?|[+-]?\d+/\d+|[+-]?inf|undef)$)"),
        QRegularExpression::CaseInsensitiveOption);
    return checked(text, before, number);
}

}  // namespace edit
