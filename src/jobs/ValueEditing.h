#pragma once

#include "tags/TagDictionary.h"
#include "tags/TagEditContext.h"

#include <QString>

class QWidget;

namespace jobs {

/// The editor of single values, as the lists of tags ask for it: they stand beside the editors and do not
/// know them. GUI thread.
class ValueEditing {
 public:
    virtual ~ValueEditing() = default;

    /// Shows the dialog that fits the kind of value, modally over the parent. 1 when edit holds a new value,
    /// 0 when the user cancelled or the kind has no editor.
    virtual int editValue(tags::TagEditContext& edit, tags::ValueKind kind, QWidget* parent) = 0;

    /// Why a value that comes from elsewhere cannot be written as it is, a whole sentence; empty when it can.
    /// Blocks while ExifTool runs, if it has to be asked.
    [[nodiscard]] virtual QString refusalOf(const tags::TagEditContext& before,
                                            const tags::TagEditContext& after) = 0;
};

}  // namespace jobs
