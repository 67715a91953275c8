#pragma once

#include "browser/SortStop.h"

#include <QCollator>
#include <QString>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace browser {

/// The order of names for people: without regard to case, numbers by value when natural. It is the order of
/// the locale's collator; names of plain ASCII, nearly all, are ordered by short keys made once, a hundred
/// times faster, in the same order (the weights are asked of the collator itself; where the locale has letter
/// pairs of their own, such as "ch", the short keys are not used). The const functions may be called from
/// several threads.
class NameOrder {
 public:
    enum class Numbers { ByValue, ByDigit };

    /// A locale without a language order of its own ("C") is taken as English: Qt's collator would silently
    /// leave the numbers alone.
    explicit NameOrder(Numbers numbers, const QLocale& locale = QLocale());

    /// Negative, 0 or positive. Bytes are UTF-8; others count as replacement characters.
    int compare(std::string_view left, std::string_view right) const;

    struct Ranked {
        std::uint32_t index;  ///< into the names given
        std::uint32_t rank;   ///< equal names share a rank; ranks rise with the order
    };

    /// The names in order; equal names keep theirs. Throws SortGivenUp when stop does.
    std::vector<Ranked> sorted(std::span<const std::string_view> names,
                               const SortStop& stop = SortStop()) const;

    bool usesShortKeys() const { return shortKeys_; }

 private:
    struct ShortKey;

    void weighAscii();
    bool hasLetterPairs() const;
    bool appendShortKey(std::string_view name, std::vector<unsigned char>& bytes) const;
    std::vector<ShortKey> sortShortKeys(std::span<const std::string_view> names,
                                        std::vector<unsigned char>& bytes, std::vector<std::uint32_t>& others,
                                        const SortStop& stop) const;
    std::vector<Ranked> sortByCollator(std::span<const std::string_view> names,
                                       const std::vector<std::uint32_t>& indexes, const SortStop& stop) const;
    std::vector<Ranked> merge(std::span<const std::string_view> names, const std::vector<Ranked>& left,
                              const std::vector<Ranked>& right, const SortStop& stop) const;

    QCollator collator_;
    bool natural_;
    bool shortKeys_ = false;
    std::array<unsigned char, 128> weights_{};
    unsigned char firstDigitWeight_ = 0;
    std::size_t mostDigits_ = 0;
};

}  // namespace browser
