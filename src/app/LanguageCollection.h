#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <filesystem>
#include <utility>

namespace app {

/// One file babel/<four digits>.dlk: a binary resource collection with the texts (texts.ts, Qt Linguist), the
/// dialog forms by template number (forms/<number>.ui), the menus (menus.xml) and the ribbon (ribbon.xml); of
/// these only texts.ts differs between languages. Behind the collection stands a line with its check sum, so
/// that a damaged file is told from a whole one before anything is read out of it. The texts are read at
/// once; the others when they are asked for. Any one thread at a time.
class LanguageCollection {
 public:
    LanguageCollection() = default;
    explicit LanguageCollection(const std::filesystem::path& file);
    ~LanguageCollection();
    LanguageCollection(const LanguageCollection&) = delete;
    LanguageCollection& operator=(const LanguageCollection&) = delete;

    /// False when the file is missing, damaged or no language file: then everything below is empty.
    bool valid() const { return valid_; }

    using FormText = std::pair<QString, QString>;  ///< class of the form, English text

    /// By number, in English; and, but for English itself, in the file's language as far as translated.
    const QHash<int, QString>& sources() const { return sources_; }
    const QHash<int, QString>& translations() const { return translations_; }
    /// The texts of the forms in the file's language as far as translated, and how many are not.
    const QHash<FormText, QString>& formTranslations() const { return formTranslations_; }
    qsizetype untranslatedFormTexts() const { return untranslatedFormTexts_; }

    /// The template numbers of the forms.
    QList<int> forms() const;
    /// The content of a file of the collection by its name there; empty when there is none.
    QByteArray read(const QString& name) const;

    static QString nameOfForm(int templateNumber);

 private:
    bool load(const std::filesystem::path& file);
    bool readTexts();

    QByteArray collection_;  // what is registered points into it
    QString root_;
    bool valid_ = false;
    QHash<int, QString> sources_;
    QHash<int, QString> translations_;
    QHash<FormText, QString> formTranslations_;
    qsizetype untranslatedFormTexts_ = 0;
};

}  // namespace app
