#pragma once

#include "app/LanguageCollection.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringView>
#include <filesystem>
#include <vector>

namespace app {

/// Added to a text's number, this gives the number of its tool tip.
inline constexpr int kTipNumbers = 100'000;

/// The language whose texts stand in for those that another one lacks.
inline constexpr int kEnglishLanguage = 9;

/// One entry of a menu of the language file.
struct MenuEntry {
    int commandId = 0;  ///< 0 is a separator, or the head of a submenu when children are there
    QString text;
    std::vector<MenuEntry> children;
};

/// What a language file lacks, so that English stands in for it.
struct LanguageGaps {
    bool wholeFile = false;  ///< missing or damaged; then nothing else is counted
    qsizetype texts = 0;     ///< not translated, those of the forms among them; of English, missing
    qsizetype forms = 0;     ///< forms, menus and ribbon that are missing or not those of English
    bool any() const { return wholeFile || texts > 0 || forms > 0; }
};

/// What the interface says, in one language: the texts by number out of babel/<four digits>.dlk, and dialog
/// forms, menus and ribbon, which English, babel/0009.dlk, has for all. What the file lacks is English too,
/// and a text that both lack its key (app/TextKeys.h); gaps() tells it. Changed by nobody, so of all threads.
class LanguageFile {
 public:
    LanguageFile() = default;
    /// Loads babel/<language>.dlk of the install folder, and the English one behind it.
    LanguageFile(const std::filesystem::path& installPath, int language);
    LanguageFile(const LanguageFile&) = delete;
    LanguageFile& operator=(const LanguageFile&) = delete;

    /// The file of a language, whether it exists or not.
    static std::filesystem::path pathOf(const std::filesystem::path& installPath, int language);

    /// False when neither the language nor English could be loaded: then there are keys alone.
    bool valid() const { return own_.valid() || english_.valid(); }

    const LanguageGaps& gaps() const { return gaps_; }

    /// The text of a number, or its key; empty when the number is no text's.
    QString text(int number) const { return texts_.value(number); }
    bool hasText(int number) const { return texts_.contains(number); }

    /// The sentence that a tool tip says beside the text; empty when there is none. It is the string 100000 +
    /// number.
    QString tip(int number) const { return text(kTipNumbers + number); }

    /// The text with its "%s" replaced in order by the values; a "%d" or "%u" takes a value too, and "%2$s"
    /// the second one. A place without a value becomes empty, and "%%" is a percent sign.
    QString formatted(int number, std::initializer_list<QString> values) const;

    /// The Designer form of a template number, its texts in the language; empty when there is none.
    QByteArray form(int templateNumber) const;

    /// The entries of a menu; none when there is no such menu.
    std::vector<MenuEntry> menu(int number) const { return menus_.value(number); }

    /// The markup of the ribbon, "RIBBON_RIBBON"; empty when there is none.
    QByteArray ribbonMarkup() const { return read(QStringLiteral("ribbon.xml")); }

 private:
    QByteArray read(const QString& name) const;
    void gatherTexts();
    void readMenus();
    void countGaps(int language);

    LanguageCollection own_;
    LanguageCollection english_;  // empty where English is the language
    LanguageGaps gaps_;
    QHash<int, QString> texts_;
    QHash<int, std::vector<MenuEntry>> menus_;
};

/// The format of formatted(), for a text that is at hand.
QString formatText(QStringView format, std::initializer_list<QString> values);

}  // namespace app
