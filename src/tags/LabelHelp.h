#pragma once

#include "tags/LabelFiles.h"
#include "tags/TagDictionary.h"

#include <QString>
#include <vector>

namespace tags {

/// The languages of the label library, in the order of its tables.
enum LabelLanguage : std::size_t {
    kLabelEnglish,
    kLabelGerman,
    kLabelFrench,
    kLabelSpanish,
    kLabelLanguages
};

struct HelpValue {
    QString code;
    QString text;
};

/// All that a help text is made of.
struct HelpFacts {
    const TagRecord& tag;
    const TagFacts& facts;
    QString label;
    std::vector<HelpValue> values;
    int valuesLeft = 0;  ///< how many more there are
};

/// The help text in that language, of several lines.
QString helpText(const HelpFacts& help, std::size_t language);

/// What a tag without a name is called.
QString unnamedTagLabel(std::size_t language);

}  // namespace tags
