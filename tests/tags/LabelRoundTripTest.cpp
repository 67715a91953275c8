#include "platform/Text.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "tags/LabelLibrary.h"

#include <gtest/gtest.h>

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <iostream>

using tags::LabelLibrary;
using tags::TagDictionary;
using tags::TagRecord;
using tags::ValueKind;

namespace {

const TagDictionary& dictionary() {
    static const TagDictionary kDictionary;
    return kDictionary;
}

struct ListTag {
    int id;
    QString group;
    QString name;

    QString key() const { return group.toLower() + ':' + name; }
    std::string argument(const QString& code) const {
        return ('-' + group + ':' + name + "#=" + code).toStdString();
    }
};

/// The writable tags of kind List in these groups.
std::vector<ListTag> listTags(const QString& groups, const QStringList& exceptions) {
    const QRegularExpression wanted('^' + groups, QRegularExpression::CaseInsensitiveOption);
    std::vector<ListTag> found;
    for (const TagRecord& row : dictionary().records()) {
        const QString group = platform::wide(row.group);
        if (!row.writable || row.valueKind != ValueKind::List || !wanted.match(group).hasMatch()) continue;
        if (!exceptions.contains(group + ':' + platform::wide(row.name)))
            found.push_back({static_cast<int>(row.id), group, platform::wide(row.name)});
    }
    return found;
}

/// What ExifTool prints of each tag, by "group:name".
QHash<QString, QStringList> printedValues(const std::filesystem::path& file, const std::string& language) {
    const QString output = QString::fromStdString(
        support::ExifTool({"-G1", "-s", "-a", "-u", "-t", "-lang", language, file.string()}));
    QHash<QString, QStringList> values;
    for (const QString& line : output.split('\n')) {
        const QStringList cells = line.split('\t');
        if (cells.size() >= 3) values[cells[0].toLower() + ':' + cells[1]] += cells[2];
    }
    return values;
}

struct Choice {
    QString label;
    QString code;
};

std::optional<Choice> choiceOf(const LabelLibrary& library, int id, int index) {
    Choice choice;
    if (!library.GetLibelleCombo(id, choice.label, choice.code, index)) return std::nullopt;
    return choice;
}

/// Writes the code of the value number index of every tag that has as many into the file, in one run.
void writeChoices(const LabelLibrary& library, const std::vector<ListTag>& tags, int index,
                  const std::filesystem::path& file) {
    std::vector<std::string> arguments{"-q", "-overwrite_original"};
    for (const ListTag& tag : tags) {
        if (const auto choice = choiceOf(library, tag.id, index))
            arguments.push_back(tag.argument(choice->code));
    }
    arguments.push_back(file.string());
    support::ExifTool(arguments);
}

/// Every choice that has been written is printed with its text. How many there were.
int expectPrinted(const LabelLibrary& library, const std::vector<ListTag>& tags, int index,
                  const std::filesystem::path& file, const std::string& language) {
    const auto printed = printedValues(file, language);
    int compared = 0;
    for (const ListTag& tag : tags) {
        const auto choice = choiceOf(library, tag.id, index);
        if (!choice) continue;
        ++compared;
        const QStringList values = printed.value(tag.key());
        EXPECT_TRUE(values.contains(choice->label))
            << tag.key().toStdString() << " = " << choice->code.toStdString() << ": "
            << choice->label.toStdString() << " became " << values.join(" | ").toStdString();
        for (const QString& value : values) {
            const auto back = choiceOf(library, tag.id, library.GetComboIndex(tag.id, value));
            if (!back) {
                ADD_FAILURE() << tag.key().toStdString() << ": " << value.toStdString();
                continue;
            }
            // Two codes of a list may be printed as one text; no other may be taken for it.
            EXPECT_EQ(back->label, value) << tag.key().toStdString();
        }
    }
    return compared;
}

constexpr const char* kJpegGroups = "(IFD0|IFD1|ExifIFD|GPS|InteropIFD|IPTC|JFIF|Photoshop|XMP-.*)$";

/// What a small JPEG has no place for: a raw file's tag, and parts of a record that it lacks.
const QStringList& notInJpeg() {
    static const QStringList kNames{"IFD0:Multishot", "Photoshop:DisplayedUnitsX",
                                    "Photoshop:DisplayedUnitsY"};
    return kNames;
}

std::string bigEndian(std::uint32_t number) {
    return {static_cast<char>(number >> 24U), static_cast<char>(number >> 16U),
            static_cast<char>(number >> 8U), static_cast<char>(number)};
}

std::string atom(const std::string& name, const std::string& content) {
    return bigEndian(static_cast<std::uint32_t>(content.size()) + 8) + name + content;
}

/// A film of no length.
void writeFilm(const std::filesystem::path& file) {
    const std::string nothing(64, '\0');
    std::string header = nothing.substr(0, 12) + bigEndian(600) + bigEndian(0) + bigEndian(0x10000) +
                         std::string("\1\0", 2) + nothing.substr(0, 10);
    for (const std::uint32_t cell : {0x10000U, 0U, 0U, 0U, 0x10000U, 0U, 0U, 0U, 0x40000000U})
        header += bigEndian(cell);
    header += nothing.substr(0, 24) + bigEndian(1);
    support::writeBytes(file, atom("ftyp", "M4A " + bigEndian(0) + "M4A mp42") +
                                  atom("moov", atom("mvhd", header)) + atom("mdat", "data"));
}

}  // namespace

TEST(LabelRoundTrip, TheCodeThatIsWrittenIntoAJpegIsPrintedAsItsText) {
    const LabelLibrary library(9, dictionary());
    const std::vector<ListTag> tags = listTags(kJpegGroups, notInJpeg());
    const support::TemporaryFolder folder;
    int compared = 0;
    for (int index = 0; index < 12; ++index) {
        const auto file = folder / (std::to_string(index) + ".jpg");
        support::writeJpeg(file);
        writeChoices(library, tags, index, file);
        compared += expectPrinted(library, tags, index, file, "en");
    }
    std::cout << compared << " pairs of " << tags.size() << " tags\n";
    EXPECT_GT(compared, 1000);
}

TEST(LabelRoundTrip, TheCodeThatIsWrittenIntoAFilmIsPrintedAsItsText) {
    const LabelLibrary library(9, dictionary());
    const std::vector<ListTag> tags = listTags("(ItemList|Keys|UserData)$", {});
    const support::TemporaryFolder folder;
    int compared = 0;
    for (int index = 0; index < 4; ++index) {
        const auto file = folder / (std::to_string(index) + ".m4a");
        writeFilm(file);
        writeChoices(library, tags, index, file);
        compared += expectPrinted(library, tags, index, file, "en");
    }
    EXPECT_GT(compared, 20);
}

TEST(LabelRoundTrip, WhatExifToolPrintsInALanguageIsWhatTheLibrarySays) {
    const std::vector<ListTag> tags = listTags(kJpegGroups, notInJpeg());
    const support::TemporaryFolder folder;
    const LabelLibrary english(9, dictionary());
    const auto file = folder / "language.jpg";
    support::writeJpeg(file);
    writeChoices(english, tags, 1, file);
    for (const auto& [number, language] : {std::pair(7, std::string("de")), std::pair(12, std::string("fr")),
                                           std::pair(10, std::string("es"))}) {
        const LabelLibrary library(number, dictionary());
        EXPECT_GT(expectPrinted(library, tags, 1, file, language), 100) << language;
    }
}
