#include "edit/PanelEdit.h"

#include "support/EditedFile.h"
#include "support/UnprivilegedUser.h"

using namespace edit;
using namespace tags;

namespace {

class PanelEdit : public EditedFile {
 protected:
    static tags::MetadataRow row(const char* value) {
        tags::MetadataRow made;
        made.value = QString::fromUtf8(value);
        return made;
    }
};

}  // namespace

TEST_F(PanelEdit, AClickLeadsToWhatTheTagAllows) {
    const struct {
        const char16_t* group;
        const char16_t* name;
        const char* value;
        bool altHeld;
        PanelAction action;
    } cases[] = {
        {u"IFD0", u"Artist", "Ada", false, PanelAction::EditValue},
        {u"IFD0", u"Artist", "Ada", true, PanelAction::ViewText},
        {u"ExifIFD", u"CreateDate", "x", false, PanelAction::EditValue},
        {u"ExifIFD", u"ExposureTime", "1/3", false, PanelAction::EditValue},
        {u"XMP-Xmp", u"Rating", "", false, PanelAction::EditValue},
        {u"IFD0", u"Orientation", "Rotate 180", false, PanelAction::EditValue},
        {u"IFD0", u"Orientation", "Unknown (77)", false, PanelAction::TellNotInList},
        {u"IFD0", u"Orientation", "Unknown (77)", true, PanelAction::ViewText},
        {u"File", u"MIMEType", "image/jpeg", false, PanelAction::ViewText},
        {u"File", u"PreviewImage", "(Binary data 12 bytes)", false, PanelAction::ViewText},
        {u"IFD1", u"ThumbnailImage", "(Binary data 12 bytes)", false, PanelAction::ViewPicture},
        {u"IFD1", u"ThumbnailImage", "(Binary data 12 bytes)", true, PanelAction::ViewPicture},
        {u"System", u"FileName", "a.jpg", false, PanelAction::ViewText},
    };
    for (const auto& each : cases)
        EXPECT_EQ(actionOfClick(parts, form(), row(each.value), record(each.group, each.name), each.altHeld),
                  each.action)
            << QString::fromUtf16(each.name).toStdString() << each.value << each.altHeld;
    EXPECT_EQ(actionOfClick(parts, form(), row("x"), std::nullopt, false), PanelAction::ViewText);
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(actionOfClick(parts, form(), row("Unknown (77)"), record(u"IFD0", u"Orientation"), false),
              PanelAction::Nothing);
}

TEST_F(PanelEdit, ARatingIsPreselectedAsDesigned) {
    const std::pair<const char*, int> cases[] = {{"1", 1}, {"2", 2},       {"3", 6}, {"4", 4},
                                                 {"5", 5}, {"", 0},        {"0", 0}, {"6", 0},
                                                 {"x", 0}, {"3 stars", 6}, {"-3", 0}};
    for (const auto& [value, selection] : cases)
        EXPECT_EQ(designedRatingSelection(QString::fromUtf8(value)), selection) << value;
}

TEST_F(PanelEdit, AnEditedRowBecomesTheCurrentEdit) {
    const tags::TagRecord tag = record(u"IFD0", u"Orientation");
    const TagEditContext before =
        contextOfRow(parts, form(), photo({"-IFD0:Orientation#=3"}), row("Rotate 180"), tag).context;
    EXPECT_EQ(before.title, QStringLiteral("Orientation"));
    EXPECT_EQ(before.group, QStringLiteral("IFD0"));
    EXPECT_EQ(before.value, QStringLiteral("Rotate 180"));
    EXPECT_EQ(before.selection, labels.GetComboIndex(static_cast<int>(tag.id), u"Rotate 180"));
    TagEditContext after = before;
    EXPECT_TRUE(isUnchanged(form(), before, after, tag));
    after.selection = 0;
    after.value = "Horizontal (normal)";
    after.comboCode = "1";
    EXPECT_FALSE(isUnchanged(form(), before, after, tag));
    const app::CurrentEdit edit = editOfRow(parts, form(), before, after, tag, 7);
    EXPECT_EQ(edit.id, static_cast<int>(tag.id));
    EXPECT_EQ(edit.groupIndex, 78);
    EXPECT_EQ(edit.name, QStringLiteral("Orientation"));
    EXPECT_EQ(edit.comboCode, QStringLiteral("1"));
    EXPECT_EQ(edit.valueKind, 4);
    EXPECT_TRUE(edit.writable);
    EXPECT_EQ(edit.rowIndex, 7);
    EXPECT_EQ(edit.valueBefore, QStringLiteral("Rotate 180"));
}

TEST_F(PanelEdit, ARatingThatShowsAsStarsIsEditedAsItsNumber) {
    const tags::TagRecord tag = record(u"XMP-Xmp", u"Rating");
    tags::MetadataRow stars;
    stars.stars = 3;
    const TagEditContext before = contextOfRow(parts, form(), photo({}), stars, tag).context;
    EXPECT_EQ(before.value, QStringLiteral("3"));
    TagEditContext after = before;
    after.selection = 4;
    after.value = "4";
    EXPECT_EQ(editOfRow(parts, form(), before, after, tag, 0).value, QStringLiteral("4"));
    // Stars are painted from the memory: it learns of the new ones when they are written.
    EXPECT_EQ(memory.Rating(8849), 0);
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(contextOfRow(parts, form(), "/p/a.jpg", stars, tag).context.selection, 6);
}

TEST_F(PanelEdit, TheLibraryKnowsWhichTagsHoldSeveralValues) {
    const std::pair<const char16_t*, bool> tagsOfDc[] = {
        {u"Subject", true}, {u"Creator", true}, {u"Title", false}, {u"Format", false}};
    for (const auto& [name, several] : tagsOfDc)
        EXPECT_EQ(labels.takesSeveralValues(static_cast<int>(record(u"XMP-dc", name).id)), several)
            << QString::fromUtf16(name).toStdString();
    EXPECT_TRUE(labels.takesSeveralValues(static_cast<int>(record(u"IPTC", u"Keywords").id)));
    EXPECT_FALSE(labels.takesSeveralValues(-1));
    EXPECT_FALSE(labels.takesSeveralValues(1'000'000));
}

TEST_F(PanelEdit, TheFolderOfTheFileBehindALinkIsTheOneThatCounts) {
    namespace fs = std::filesystem;
    fs::create_directory(folder / "links");
    fs::create_symlink(photo({}), folder / "links/a.jpg");
    const support::UnprivilegedUser user(folder.path());
    const auto kOnlyRead = fs::perms::owner_read | fs::perms::owner_exec;
    fs::permissions(folder / "links", kOnlyRead);
    EXPECT_EQ(edit::whyNotWritable(folder / "links/a.jpg"), QString());
    fs::permissions(folder / "links", fs::perms::owner_all);
    fs::permissions(folder / "photos", kOnlyRead);
    EXPECT_NE(edit::whyNotWritable(folder / "links/a.jpg"), QString());
    fs::permissions(folder / "photos", fs::perms::owner_all);
}
