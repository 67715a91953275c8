#include "edit/NumberText.h"

#include <QRegularExpression>
#include <cstdint>
#include <limits>

namespace edit {

namespace {

constexpr qsizetype kLongestAddition = 255;

QRegularExpression expression(const char* pattern) {
    return QRegularExpression(QLatin1String(pattern), QRegularExpression::CaseInsensitiveOption);
}

/// One number among other text. A sign belongs to it only where it cannot be a hyphen between two.
const QRegularExpression& integerWithin() {
    static const QRegularExpression number = expression(R"((?:(?<![\w.)])[+-])?\d+)");
    return number;
}

const QRegularExpression& numberWithin() {
    static const QRegularExpression number = expression(R"((?:(?<![\w.)])[+-])?\d+(?:\.\d*)?(?:e[+-]?\d+)?)");
    return number;
}

/// Whether only the numbers in the text differ from those before.
bool hasFormOf(QStringView text, QStringView before, const QRegularExpression& number) {
    const auto formOf = [&](QStringView given) {
        return given.toString().replace(number, QStringLiteral("#"));
    };
    const QString form = formOf(before);
    return text == before || (form.contains(u'#') && formOf(text) == form);
}

std::optional<QString> checked(QStringView text, QStringView before, const QRegularExpression& whole,
                               const QRegularExpression& within) {
    const QStringView bare = text.trimmed();
    if (bare.isEmpty() || whole.match(bare.toString()).hasMatch() ||
        hasFormOf(bare, before.trimmed(), within))
        return bare.toString();
    return std::nullopt;
}

}  // namespace

QString designedInteger(const QString& text) {
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

std::optional<QString> correctedInteger(QStringView text, QStringView before) {
    static const QRegularExpression whole = expression(R"(^(?:[+-]?\d+|0x[0-9a-f]+)$)");
    return checked(text, before, whole, integerWithin());
}

QString designedRational(const QString& before, const QString& text) {
    return before + text.left(kLongestAddition);
}

std::optional<QString> correctedRational(QStringView text, QStringView before) {
    static const QRegularExpression whole =
        expression(R"(^(?:[+-]?(?:\d+\.?\d*|\.\d+)(?:e[+-]?\d+)?|[+-]?\d+/\d+|[+-]?inf|undef)$)");
    return checked(text, before, whole, numberWithin());
}

}  // namespace edit
