#include "browser/NameOrder.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstring>

namespace browser {
namespace {

constexpr char kFirstPrintable = ' ';
constexpr char kLastPrintable = '~';
constexpr std::size_t kPrefixBytes = 8;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

/// The first eight bytes of a name's key as a number, so that most comparisons touch nothing else.
struct NameOrder::ShortKey {
    std::uint64_t prefix = 0;
    const unsigned char* rest = nullptr;
    std::uint32_t restLength = 0;
    std::uint32_t index = 0;

    int compare(const ShortKey& other) const {
        if (prefix != other.prefix) return prefix < other.prefix ? -1 : 1;
        const std::size_t common = std::min(restLength, other.restLength);
        const int order = common == 0 ? 0 : std::memcmp(rest, other.rest, common);
        if (order != 0) return order;
        return restLength == other.restLength ? 0 : restLength < other.restLength ? -1 : 1;
    }
};

NameOrder::NameOrder(Numbers numbers, const QLocale& locale)
    : collator_(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale),
      natural_(numbers == Numbers::ByValue) {
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
    collator_.setNumericMode(natural_);
    collator_.setIgnorePunctuation(false);
    weighAscii();
}

// Weights: the collator's order of the single characters. In natural order a run of digits becomes one weight
// that tells how many significant digits follow, so that a longer number is a greater one, and then the
// digits in pairs.
void NameOrder::weighAscii() {
    std::vector<char> characters;
    for (char c = kFirstPrintable; c <= kLastPrintable; ++c) characters.push_back(c);
    const auto compareCharacters = [this](char left, char right) {
        return collator_.compare(QString(QLatin1Char(left)), QString(QLatin1Char(right)));
    };
    std::ranges::stable_sort(characters, [&](char a, char b) { return compareCharacters(a, b) < 0; });
    unsigned char weight = 0;
    std::size_t letters = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (i == 0 || compareCharacters(characters[i - 1], characters[i]) != 0) ++weight;
        weights_[static_cast<unsigned char>(characters[i])] = weight;
    }
    firstDigitWeight_ = weights_['0'];
    for (char c = '0'; c <= '9'; ++c)
        if (weights_[static_cast<unsigned char>(c)] != firstDigitWeight_ + (c - '0')) return;
    for (char c = 'a'; c <= 'z'; ++c) {
        const unsigned char lower = weights_[static_cast<unsigned char>(c)];
        if (lower <= weights_['9'] || lower != weights_[static_cast<unsigned char>(c - 'a' + 'A')]) return;
    }
    for (const unsigned char each : weights_)
        if (each > weights_['9']) ++letters;
    if (letters != 52 || hasLetterPairs()) return;
    if (natural_) {
        constexpr unsigned kGreatestWeight = 255;
        const unsigned lettersAbove = static_cast<unsigned>(weight - weights_['9']);
        mostDigits_ = kGreatestWeight - lettersAbove - firstDigitWeight_;
        const auto shift = static_cast<unsigned char>(kGreatestWeight - weight);
        for (unsigned char& each : weights_)
            if (each > firstDigitWeight_ + 9) each = static_cast<unsigned char>(each + shift);
    }
    shortKeys_ = true;
}

bool NameOrder::hasLetterPairs() const {
    QString previous;
    for (char first = 'a'; first <= 'z'; ++first) {
        for (char second = 'a'; second <= 'z'; ++second) {
            const QString pair = QString(QLatin1Char(first)) + QLatin1Char(second);
            if (!previous.isEmpty() && collator_.compare(previous, pair) >= 0) return true;
            previous = pair;
        }
    }
    return false;
}

bool NameOrder::appendShortKey(std::string_view name, std::vector<unsigned char>& bytes) const {
    for (std::size_t i = 0; i < name.size();) {
        const char c = name[i];
        if (c < kFirstPrintable || c > kLastPrintable) return false;
        if (!natural_ || !isDigit(c)) {
            bytes.push_back(weights_[static_cast<unsigned char>(c)]);
            ++i;
            continue;
        }
        while (i < name.size() && name[i] == '0') ++i;
        std::size_t end = i;
        while (end < name.size() && isDigit(name[end])) ++end;
        const std::size_t digits = end - i;
        if (digits > mostDigits_) return false;
        bytes.push_back(static_cast<unsigned char>(firstDigitWeight_ + digits));
        if (digits % 2 != 0) bytes.push_back(static_cast<unsigned char>(name[i++] - '0'));
        for (; i < end; i += 2)
            bytes.push_back(static_cast<unsigned char>((name[i] - '0') * 10 + (name[i + 1] - '0')));
    }
    return true;
}

int NameOrder::compare(std::string_view left, std::string_view right) const {
    if (shortKeys_) {
        std::vector<unsigned char> leftKey;
        std::vector<unsigned char> rightKey;
        if (appendShortKey(left, leftKey) && appendShortKey(right, rightKey))
            return leftKey < rightKey ? -1 : leftKey == rightKey ? 0 : 1;
    }
    return collator_.compare(platform::wide(left), platform::wide(right));
}

std::vector<NameOrder::Ranked> NameOrder::sortByCollator(std::span<const std::string_view> names,
                                                         const std::vector<std::uint32_t>& indexes,
                                                         const SortStop& stop) const {
    struct Keyed {
        QCollatorSortKey key;
        std::uint32_t index;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(indexes.size());
    for (const std::uint32_t index : indexes) {
        stop.check();
        keyed.push_back({collator_.sortKey(platform::wide(names[index])), index});
    }
    std::ranges::stable_sort(keyed, [&](const Keyed& a, const Keyed& b) {
        stop.check();
        return a.key.compare(b.key) < 0;
    });
    std::vector<Ranked> ranked;
    ranked.reserve(keyed.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        if (i > 0 && keyed[i - 1].key.compare(keyed[i].key) != 0) ++rank;
        ranked.push_back({keyed[i].index, rank});
    }
    return ranked;
}

std::vector<NameOrder::Ranked> NameOrder::merge(std::span<const std::string_view> names,
                                                const std::vector<Ranked>& left,
                                                const std::vector<Ranked>& right,
                                                const SortStop& stop) const {
    std::vector<Ranked> merged;
    merged.reserve(left.size() + right.size());
    std::uint32_t rank = 0;
    const Ranked* previous = nullptr;
    const std::vector<Ranked>* previousSide = nullptr;
    const auto take = [&](const std::vector<Ranked>& side, const Ranked& next, bool equalToOther) {
        const bool equal = previousSide == &side ? previous->rank == next.rank : equalToOther;
        if (previous != nullptr && !equal) ++rank;
        merged.push_back({next.index, rank});
        previous = &next;
        previousSide = &side;
    };
    const auto equalToPrevious = [&](const Ranked& next) {
        return previous != nullptr && compare(names[previous->index], names[next.index]) == 0;
    };
    std::size_t i = 0;
    for (const Ranked& next : right) {
        stop.check();
        // The left side is usually the long one: its place for the next of the other is found by halving.
        const auto place = std::upper_bound(left.begin() + static_cast<std::ptrdiff_t>(i), left.end(), next,
                                            [&](const Ranked& a, const Ranked& b) {
                                                const int order = compare(names[a.index], names[b.index]);
                                                return order != 0 ? order < 0 : a.index < b.index;
                                            });
        for (; i < static_cast<std::size_t>(place - left.begin()); ++i)
            take(left, left[i], previousSide == &right && equalToPrevious(left[i]));
        take(right, next, previousSide == &left && equalToPrevious(next));
    }
    for (; i < left.size(); ++i) take(left, left[i], previousSide == &right && equalToPrevious(left[i]));
    return merged;
}

/// Sorted keys of the names that have one; the indexes of all others go to others. The keys point into bytes.
std::vector<NameOrder::ShortKey> NameOrder::sortShortKeys(std::span<const std::string_view> names,
                                                          std::vector<unsigned char>& bytes,
                                                          std::vector<std::uint32_t>& others,
                                                          const SortStop& stop) const {
    std::vector<ShortKey> keys;
    std::vector<std::size_t> ends;
    if (shortKeys_) {
        keys.reserve(names.size());
        ends.reserve(names.size());
        bytes.reserve(names.size() * kPrefixBytes * 2);
    }
    for (std::uint32_t i = 0; i < names.size(); ++i) {
        stop.check();
        const std::size_t offset = bytes.size();
        if (shortKeys_ && appendShortKey(names[i], bytes)) {
            ends.push_back(bytes.size());
            keys.emplace_back().index = i;
            continue;
        }
        bytes.resize(offset);
        others.push_back(i);
    }
    std::size_t begin = 0;
    for (std::size_t i = 0; i < keys.size(); begin = ends[i++]) {
        const std::size_t length = ends[i] - begin;
        const std::size_t inPrefix = std::min(length, kPrefixBytes);
        for (std::size_t at = 0; at < kPrefixBytes; ++at)
            keys[i].prefix = (keys[i].prefix << 8) | (at < inPrefix ? bytes[begin + at] : 0U);
        keys[i].rest = bytes.data() + begin + inPrefix;
        keys[i].restLength = static_cast<std::uint32_t>(length - inPrefix);
    }
    std::ranges::sort(keys, [&](const ShortKey& a, const ShortKey& b) {
        stop.check();
        const int order = a.compare(b);
        return order != 0 ? order < 0 : a.index < b.index;
    });
    return keys;
}

std::vector<NameOrder::Ranked> NameOrder::sorted(std::span<const std::string_view> names,
                                                 const SortStop& stop) const {
    std::vector<unsigned char> bytes;
    std::vector<std::uint32_t> others;
    const std::vector<ShortKey> keys = sortShortKeys(names, bytes, others, stop);
    std::vector<Ranked> ranked;
    ranked.reserve(names.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i > 0 && keys[i - 1].compare(keys[i]) != 0) ++rank;
        ranked.push_back({keys[i].index, rank});
    }
    if (others.empty()) return ranked;
    const std::vector<Ranked> byCollator = sortByCollator(names, others, stop);
    return ranked.empty() ? byCollator : merge(names, ranked, byCollator, stop);
}

}  // namespace browser
