#pragma once

#include "app/CommandForm.h"
#include "tags/TagDictionary.h"
#include "tags/TagEditContext.h"

#include <QString>
#include <filesystem>

class QWidget;

namespace jobs {

/// A value to be edited, or why it could not be read; then there is none, since what a row shows may be less.
struct EditableValue {
    QString text;
    QString fault;  ///< for people; empty when the value was read
};

/// The editor of single values, as the lists of tags ask for it: they stand beside the editors and do not
/// know them. GUI thread.
class ValueEditing {
 public:
    virtual ~ValueEditing() = default;

    /// The value that is edited for a shown text: one entry a line for a tag that holds several. Blocks while
    /// ExifTool runs, if it has to be asked.
    [[nodiscard]] virtual EditableValue editableValue(app::CommandForm form,
                                                      const std::filesystem::path& file,
                                                      const tags::TagRecord& tag, const QString& shown) = 0;

    /// Shows the dialog that fits the kind of value, modally over the parent. 1 when edit holds a new value,
    /// 0 when the user cancelled or the kind has no editor.
    virtual int editValue(tags::TagEditContext& edit, tags::ValueKind kind, QWidget* parent) = 0;
};

}  // namespace jobs
