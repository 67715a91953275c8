#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringView>
#include <filesystem>
#include <vector>

namespace app {

/// Added to a text's number, this gives the number of its tool tip.
inline constexpr int kTipNumbers = 100'000;

/// One entry of a menu of the language file.
struct MenuEntry {
    int commandId = 0;  ///< 0 is a separator, or the head of a submenu when children are there
    QString text;
    std::vector<MenuEntry> children;
};

/// A language file, babel/<four digits>.dlk: a binary resource collection with the texts by number
/// and those of the forms (texts.ts), the dialog forms by template number (forms/<number>.ui), the menus
/// (menus.xml) and the ribbon (ribbon.xml); of these only texts.ts differs between languages. Behind the
/// collection stands a line with its check sum, so that a damaged file is told from a whole one before
/// anything is read out of it. Everything is loaded at once; texts are looked up without touching the file.
/// Any one thread at a time.
class LanguageFile {
 public:
    LanguageFile() = default;
    /// Loads babel/<number>.dlk of the install folder.
    LanguageFile(const std::filesystem::path& installPath, int language);
    ~LanguageFile();
    LanguageFile(const LanguageFile&) = delete;
    LanguageFile& operator=(const LanguageFile&) = delete;

    /// The file of a language, whether it exists or not.
    static std::filesystem::path pathOf(const std::filesystem::path& installPath, int language);

    /// False when the file is missing, damaged or no language file: then every answer below is empty.
    bool valid() const { return valid_; }

    /// The text of a number; empty when there is none.
    QString text(int number) const { return texts_.value(number); }
    bool hasText(int number) const { return texts_.contains(number); }

    /// The sentence that a tool tip says beside the text; empty when there is none. It is the string 100000 +
    /// number.
    QString tip(int number) const { return text(kTipNumbers + number); }

    /// The text with its "%s" replaced in order by the values; a "%d" or "%u" takes a value too. A place
    /// without a value becomes empty, and "%%" is a percent sign.
    QString formatted(int number, std::initializer_list<QString> values) const;

    /// The Designer form of a template number, its texts in the language; empty when there is none.
    QByteArray form(int templateNumber) const;

    /// The entries of a menu; none when there is no such menu.
    std::vector<MenuEntry> menu(int number) const { return menus_.value(number); }

    /// The markup of the ribbon, "RIBBON_RIBBON"; empty when there is none.
    QByteArray ribbonMarkup() const { return read(QStringLiteral("ribbon.xml")); }

 private:
    bool load(const std::filesystem::path& file);
    QByteArray read(const QString& name) const;
    bool readTexts();
    bool readMenus();

    QByteArray collection_;  // what is registered points into it
    QString root_;
    bool valid_ = false;
    QHash<int, QString> texts_;
    QHash<std::pair<QString, QString>, QString> formTexts_;  // by class of the form and English text
    QHash<int, std::vector<MenuEntry>> menus_;
};

/// The format of formatted(), for a text that is at hand.
QString formatText(QStringView format, std::initializer_list<QString> values);

}  // namespace app
