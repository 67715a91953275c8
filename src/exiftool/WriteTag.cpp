#include "exiftool/WriteTag.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "exiftool/LineParts.h"
#include "exiftool/WriteCommands.h"
#include "platform/Text.h"
#include "tags/Entries.h"
#include "tags/PropertyWrite.h"
#include "tags/TagDictionary.h"

#include <algorithm>

namespace exiftool {

namespace fs = std::filesystem;
using app::CommandForm;
using platform::CommandText;

namespace {

constexpr int kCodedCharacterSet = 853;
constexpr std::uint32_t kFirstPropertyGroup = 330;
constexpr char16_t kLastLatin = 0xFF;

bool couldLeaveItsArgument(QStringView text) {
    return std::ranges::any_of(text, [](QChar c) { return QStringView(u"\"<>%\n\r").contains(c); });
}

bool isPropertyGroupOfTheList(const app::CurrentEdit& edit) {
    return edit.groupIndex >= 0 && static_cast<std::uint32_t>(edit.groupIndex) >= kFirstPropertyGroup &&
           tags::isPropertyGroup(static_cast<std::uint32_t>(edit.groupIndex));
}

bool goesToThePropertyStore(CommandForm form, const app::CurrentEdit& edit) {
    if (edit.groupIndex < 0 || edit.id < 0) return false;
    // The rows of [File] and [System] carry the numbers of tags. One that happens to be a property's number
    // as well would write another property than the one that was clicked.
    return form == CommandForm::Corrected
               ? isPropertyGroupOfTheList(edit)
               : tags::isPropertyGroup(static_cast<std::uint32_t>(edit.groupIndex));
}

/// `-GROUP:NAME`; without a group where the designed form or the list's own groups have none to give.
CommandText tagWord(CommandForm form, const app::CurrentEdit& edit) {
    CommandText word("-");
    if (form == CommandForm::Corrected && !edit.group.isEmpty() && !isPropertyGroupOfTheList(edit))
        word.outside(platform::narrow(edit.group)).literal(":");
    word.outside(platform::narrow(edit.name));
    if (form == CommandForm::Corrected && !edit.language.isEmpty())
        word.literal("-").outside(platform::narrow(edit.language));
    return word;
}

bool opensWithEscape(CommandForm form, const app::CurrentEdit& edit) {
    if (edit.id != kCodedCharacterSet || edit.value.startsWith(u'U')) return false;
    return !(form == CommandForm::Corrected && edit.value.startsWith(u"ESC"));
}

bool isBeyondLatin(QStringView text) {
    return std::ranges::any_of(text, [](QChar c) { return c.unicode() > kLastLatin; });
}

bool isIptcBeyondLatin(const app::CurrentEdit& edit) {
    return edit.group == u"IPTC" && isBeyondLatin(edit.value);
}

/// IPTC is Latin unless the file says otherwise, and whatever Latin lacks would become question marks. The
/// record's other values are rewritten together with the mark of the new encoding, those aside that get a new
/// value on the same line.
CommandText encodingTerms(CommandForm form, std::span<const app::CurrentEdit> edits) {
    if (form == CommandForm::Designed || std::ranges::none_of(edits, isIptcBeyondLatin)) return {};
    CommandText terms("-tagsfromfile @ -IPTC:All ");
    for (const app::CurrentEdit& edit : edits)
        if (edit.group == u"IPTC") terms.literal("--IPTC:").outside(platform::narrow(edit.name)).literal(" ");
    // Copied like the others, from a value that every file has: of a file without IPTC ExifTool would else
    // complain that it had nothing to copy.
    return terms.literal("\"-IPTC:CodedCharacterSet<${FileType;$_='UTF8'}\" ");
}

}  // namespace

CommandText editedValue(CommandForm form, QStringView value, QStringView valueBefore) {
    if (!couldLeaveItsArgument(valueBefore)) return exiftool::quotedValue(form, value);
    return CommandText("\"").outside(platform::exactBytes(value)).literal("\"");
}

namespace {

/// What ExifTool deletes together with the plain entry.
CommandText translationTerms(const app::CurrentEdit& edit) {
    CommandText terms;
    for (const app::Translation& other : edit.translations) {
        terms.literal("-").outside(platform::narrow(edit.group)).literal(":");
        terms.outside(platform::narrow(other.name)).literal("=\"");
        terms.outside(platform::exactBytes(other.value)).literal("\" ");
    }
    return terms;
}

/// Without what the encoding of the group and other languages ask for.
CommandText termOfTag(CommandForm form, const app::CurrentEdit& edit) {
    const CommandText word = tagWord(form, edit);
    CommandText terms;
    const bool byCode = form == CommandForm::Corrected && !edit.comboCode.isEmpty() &&
                        edit.valueKind == static_cast<int>(tags::ValueKind::List);
    if (byCode)
        return terms.append(word).literal("#=\"").outside(platform::narrow(edit.comboCode)).literal("\" ");
    if (edit.value.isEmpty()) return terms.append(word).literal("= ");
    if (form == CommandForm::Corrected && edit.severalValues) {
        const QStringList entries = tags::splitEntries(edit.value);
        for (const QString& entry : entries) {
            // An equals sign with nothing behind it deletes, unless a caret is before it.
            terms.append(word).literal(entry.isEmpty() ? "^=" : "=");
            if (!entry.isEmpty()) terms.append(editedValue(form, entry, {}));
            terms.literal(" ");
        }
        if (entries.isEmpty()) terms.append(word).literal("= ");
        return terms;
    }
    // An escape sequence is written in a readable form, with "ESC" for its first byte.
    const QString opening = opensWithEscape(form, edit) ? QStringLiteral("ESC ") : QString();
    const CommandText quoted = editedValue(form, opening + edit.value, edit.valueBefore);
    return terms.append(word).literal("=").append(quoted).literal(" ");
}

CommandText termsOfOneTag(CommandForm form, const app::CurrentEdit& edit) {
    CommandText terms = termOfTag(form, edit);
    if (form == CommandForm::Corrected) terms.append(translationTerms(edit));
    return terms;
}

}  // namespace

CommandText tagTerms(CommandForm form, const app::CurrentEdit& edit) {
    return termsOfTags(form, {&edit, 1});
}

CommandText termsOfTags(CommandForm form, std::span<const app::CurrentEdit> edits) {
    CommandText terms = encodingTerms(form, edits);
    for (const app::CurrentEdit& edit : edits) terms.append(termsOfOneTag(form, edit));
    return terms;
}

CommandText writeTagCommand(const app::AppContext& context, CommandForm form, const fs::path& file,
                            const app::CurrentEdit& edit) {
    CommandText command = exiftool::toolStart(context).append(tagTerms(form, edit));
    command.literal(exiftool::fragments::kOverwriteOriginal).literal(exiftool::kFileNameCharset);
    command.literal("\"").outside(exiftool::fileWord(file)).literal("\"");
    return command.append(exiftool::reportBehind(context, form));
}

Outcome outcomeOfProperty(const fs::path& file, properties::PropertyResult result) {
    if (result == properties::PropertyResult::Ok) return {file, OutcomeKind::Done, {}};
    std::string words = properties::propertyResultMessage(result).toStdString();
    // Some codes have no message of their own; none of them may pass for a success.
    if (words.empty()) {
        constexpr int kHexadecimal = 16;
        const auto code = static_cast<std::uint32_t>(result);
        words = app::spokenText(text::kPropertyNotWritten,
                                {QStringLiteral("0x") + QString::number(code, kHexadecimal)});
    }
    return {file, OutcomeKind::Failed, words};
}

Outcome WriteOneTag(const app::AppContext& context, CommandForm form, ToolRunner& runner,
                    const fs::path& file, const app::CurrentEdit& edit) {
    if (goesToThePropertyStore(form, edit)) {
        const auto result =
            tags::WriteProperty(file, {static_cast<std::uint32_t>(edit.id), edit.value, edit.fileTime});
        if (result) return outcomeOfProperty(file, *result);
    }
    return WriteOneTagWithExifTool(context, form, runner, file, edit);
}

Outcome WriteOneTagWithExifTool(const app::AppContext& context, CommandForm form, ToolRunner& runner,
                                const fs::path& file, const app::CurrentEdit& edit) {
    return runner.runWriteLine(file, writeTagCommand(context, form, file, edit));
}

}  // namespace exiftool
