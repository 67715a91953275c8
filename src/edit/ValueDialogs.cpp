#include "edit/ValueDialogs.h"

#include "edit/ModifComboDialog.h"
#include "edit/ModifDateDialog.h"
#include "edit/ModifIntDialog.h"
#include "edit/ModifRatingDialog.h"
#include "edit/ModifRationalDialog.h"
#include "edit/ModifStringDialog.h"

namespace edit {

int editValue(const jobs::OperationParts& parts, tags::TagEditContext& edit, tags::ValueKind kind,
              QWidget* parent) {
    switch (kind) {
        case tags::ValueKind::Date:
            return ModifDateDialog(parts, edit, parent).run();
        case tags::ValueKind::Integer:
            return ModifIntDialog(parts, edit, parent).run();
        case tags::ValueKind::Text:
            return ModifStringDialog(parts, edit, parent).run();
        case tags::ValueKind::Rating:
            return ModifRatingDialog(parts, edit, parent).run();
        case tags::ValueKind::List:
            return ModifComboDialog(parts, edit, parent).run();
        case tags::ValueKind::Rational:
            return ModifRationalDialog(parts, edit, parent).run();
        case tags::ValueKind::Binary:
            break;
    }
    return 0;
}

}  // namespace edit
