#pragma once

#include "tags/TagDictionary.h"

#include <QString>
#include <array>
#include <memory>
#include <vector>

namespace tags {

class LabelFiles;
class LabelTranslations;

/// A human label and a help text for every tag of the dictionary, and for the tags of kind List the values to
/// choose from. Tags are named by TagRecord::id; any other number, -1 included, is answered like a tag
/// without label. English is complete; what another language lacks is given in English.
///
/// The data are read when something is first asked for. GUI thread only.
class LabelLibrary {
 public:
    /// language: the number of a language file, of which the low ten bits count: 7 German, 10 Spanish,
    /// 12 French, everything else English. The dictionary must outlive the library.
    LabelLibrary(int language, const TagDictionary& dictionary);
    ~LabelLibrary();
    LabelLibrary(const LabelLibrary&) = delete;
    LabelLibrary& operator=(const LabelLibrary&) = delete;

    /// Whether the tag has a label and a help text.
    bool CM_xxHasALibelle(int tagId) const;

    /// The help: label, place and topic of the tag, its format and group, whether it can be written, its
    /// values. Plain text of several lines. False, and help left alone, when there is none.
    bool GetHelpFromLibelle(int tagId, QString& help) const;

    /// A value of the tag's list: the text in the library's language, and the code that stands for it in the
    /// file, as ExifTool takes it for -GROUP:TAG#=code (a number, or text). False, and both left alone, when
    /// the index is not below the number of values.
    bool GetLibelleCombo(int tagId, QString& label, QString& code, int index) const;

    /// How many values the tag's list has; 0 for a tag of another kind.
    int GetItemNumberFromCombo(int tagId) const;

    /// Where the value that ExifTool has printed stands in the tag's list; -1 when it does not. An exact
    /// match goes before one without case, the library's language before English, both before the other
    /// languages that ExifTool may have been asked for.
    int GetComboIndex(int tagId, QStringView value) const;

    /// The tag's label in the library's language; empty when CM_xxHasALibelle is false.
    QString label(int tagId) const;

    /// Whether the tag holds a list of values, each written for itself.
    bool takesSeveralValues(int tagId) const;

    /// Whether the tag is kept in several languages, each entry with its own: "Title-x-default", "Title-de".
    bool keepsLanguages(int tagId) const;

    /// Whether the tag holds text, which is printed as it was written.
    bool holdsText(int tagId) const;

    /// Whether the tag describes how its own file is built, so that it must never come from another.
    bool describesStructure(int tagId) const;

    /// The text that ExifTool prints in English, and takes back without '#', for a value of the tag's list;
    /// empty when there is none.
    QString printedText(int tagId, int index) const;

 private:
    struct Choice {
        QString code;
        QString english;
        QString text;  ///< in the library's language
    };

    const LabelFiles& files() const;
    /// Nothing for English.
    const LabelTranslations* translations(std::size_t language) const;
    std::optional<TagRecord> record(int tagId) const;
    std::vector<Choice> choicesOf(const TagRecord& tag, int list, std::size_t language) const;
    const std::vector<Choice>& choices(int tagId) const;
    QString labelOf(const TagRecord& tag) const;

    std::size_t language_;
    const TagDictionary& dictionary_;
    mutable std::unique_ptr<LabelFiles> files_;
    mutable std::array<std::unique_ptr<LabelTranslations>, 4> translations_;
    // A dialog asks for the values of one tag one by one.
    mutable int choicesTag_ = -1;
    mutable std::vector<Choice> choices_;
};

}  // namespace tags
