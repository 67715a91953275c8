#pragma once

#include "app/AppContext.h"
#include "app/CommandForm.h"
#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "jobs/Composed.h"
#include "jobs/FilledForm.h"
#include "jobs/Job.h"
#include "tags/TagDictionary.h"

#include <QStringList>
#include <chrono>
#include <optional>
#include <span>
#include <vector>

/// Operations over files as data: what is asked, what must be filled in, and the line that it makes. Rows are
/// constants, and all that they point to lives as long as the program.
namespace jobs {

/// What a dialog says when it cannot go on.
struct OperationMessage {
    enum class Icon { None = 0, Error = 16, Question = 32, Warning = 48, Information = 64 };

    int text = 0;                   ///< number; %s is what the field holds
    const char* literal = nullptr;  ///< in the place of text, where it is the same in every language
    Icon icon = Icon::Warning;
    const char* title = nullptr;  ///< null: the program's name
};

/// What a dialog opens over.
struct Opening {
    const app::AppContext& context;
    app::CommandForm form;
    const std::vector<std::filesystem::path>& files;
    const std::filesystem::path& folder;              ///< that the window shows
    const std::vector<std::filesystem::path>& shown;  ///< all in it, for an operation that chooses its files
};

enum class FieldKind {
    Box,       ///< a check box or radio button: bool
    Text,      ///< one line or several: QString
    File,      ///< the path of a file, typed or chosen: path
    Folder,    ///< path
    Number,    ///< a spin box, or digits in a line: int
    Choice,    ///< which of a list of offers: int, from 0
    DateTime,  ///< a date, a time or both: QDateTime
    Rows,      ///< a list of rows with boxes: the ids of those ticked
};

/// What the designed form keeps of a text. The corrected one takes Unicode, as long as wanted.
struct DesignedText {
    enum class Encoding { Unicode, Western };  ///< Western: one byte a character, else a question mark

    Encoding encoding = Encoding::Unicode;
    std::size_t limit = 0;  ///< in characters; 0: none
};

/// A row of a list of boxes.
struct OperationListRow {
    int id;
    const char* name;
    const char* group = "";
};

/// A row, or an offer of a choice, that is only known when the dialog opens.
struct OperationEntry {
    int id;
    QString name;
    QString group = {};
    bool isTicked = false;
};

/// The button beside a path, and what it asks.
struct PathOffer {
    int button = 0;
    int title = 0;                         ///< number of the text
    const char* titleLiteral = nullptr;    ///< in the place of title
    std::span<const char* const> types{};  ///< "JPEG (*.jpg *.jpeg)"; none: all files
    const char* newExtension = nullptr;    ///< asks for a file to be written; put behind a name without one
    /// Where the dialog begins while no path stands there; null: beside the first file.
    std::filesystem::path (*start)(const Opening& opening) = nullptr;
};

/// Something that the user fills in, besides the boxes that stand for tags.
struct OperationField {
    int control;
    FieldKind kind;
    DesignedText designed{};
    bool mustBeFilled = false;
    int neededWith = 0;          ///< mustBeFilled only counts while this box is ticked; 0: always
    OperationMessage missing{};  ///< without text and literal the field only gets the focus
    /// What a path must be besides; null: any.
    bool (*accepts)(const std::filesystem::path& path) = nullptr;
    PathOffer offer{};
    std::span<const OperationListRow> rows{};  ///< of a list; the offers of a choice, where its form has none
    std::vector<OperationEntry> (*entries)(const Opening& opening) = nullptr;  ///< in the place of rows
};

/// A row of what a run has brought.
struct OperationResult {
    QStringList cells;
    std::filesystem::path file = {};  ///< that it tells of; selected in the file list
};

/// What a button works with that does something within the dialog.
struct Pressed {
    const Opening& opening;
    const app::LanguageFile& language;
    FilledForm& filled;  ///< what is set in it is shown
    QWidget* dialog;     ///< the parent of what is asked
    std::span<const OperationResult> results;
};

struct OperationButton {
    int control;
    void (*press)(const Pressed& pressed);
};

/// Asked once everything is filled in.
struct OperationQuestion {
    QString text = {};  ///< empty: nothing is asked
    /// The number under which compose() finds whether the answer was yes; Cancel keeps the dialog open. 0: No
    /// keeps it open.
    int answer = 0;
};

/// How a ticked box reads on the line, in one form: the literal, the value, and what closes it.
struct BoxTerm {
    const char* first = "";    ///< where no term stands before it
    const char* joined = "";   ///< behind another term
    const char* closing = "";  ///< behind the value, or behind the literal where there is no value
};

/// A box that stands for a tag or a family.
struct OperationBox {
    int control;
    BoxTerm designed{};
    BoxTerm corrected{};  ///< the value comes in quotes of its own
    int value = 0;        ///< the field whose text follows the literal; 0: none
};

enum class NothingTicked { Runs, IsTold, Cancels };

/// What a line is put together from.
struct Composing {
    const app::AppContext& context;
    app::CommandForm form;
    const FilledForm& filled;
    const tags::TagDictionary& dictionary;
    const std::filesystem::path& file;                  ///< for a line over all: their list
    std::span<const std::filesystem::path> filesSoFar;  ///< those of the run up to this one
};

/// What compose() gives, and with it the road that it takes.
enum class ComposedAs {
    Arguments,      ///< ToolRunner::RunOnFile puts tool, language, file and report around them
    Line,           ///< a whole line a file, by way of <temp>/Metadata.bat
    HiddenLine,     ///< a whole line a file, without a batch file
    LineOfAll,      ///< one line over the list of all files
    ReadLine,       ///< a whole line a file that writes nothing into it, by way of <temp>/Metadata.bat
    ReadLineOfAll,  ///< the same over the list of all files
};

/// What only reads makes no safety copies, and is judged by its answer.
constexpr bool isReading(ComposedAs composed) {
    return composed == ComposedAs::ReadLine || composed == ComposedAs::ReadLineOfAll;
}
constexpr bool isOverAll(ComposedAs composed) {
    return composed == ComposedAs::LineOfAll || composed == ComposedAs::ReadLineOfAll;
}

/// What only the designed form does around each file.
struct DesignedHabits {
    bool emptiesReport = false;         ///< the words of one file replace those of the file before
    std::chrono::milliseconds rest{0};  ///< behind the file
};

struct Operation {
    app::CommandId id;
    int templateNumber = 0;  ///< of the form; 0: nothing is asked
    /// The dialog's title; null: none.
    QString (*title)(const app::LanguageFile& language, std::size_t files) = nullptr;
    int progressText = 0;  ///< what a progress says is done; 0: the dialog's title
    std::span<const OperationField> fields{};
    std::span<const OperationBox> boxes{};
    std::span<const OperationButton> buttons{};         ///< beside those of fields
    NothingTicked nothingTicked = NothingTicked::Runs;  ///< none of the boxes, or of the rows of a list
    OperationMessage noneTicked{};
    int focus = 0;  ///< the control that has it at the start

    /// Which of the controls can be used while the others stand as they do; null: all.
    bool (*isEnabled)(int control, app::CommandForm form, const FilledForm& filled) = nullptr;
    /// Which are there at all, with the labels that belong to them.
    bool (*isShown)(int control, app::CommandForm form, const FilledForm& filled) = nullptr;
    /// What the dialog shows at its start beyond what its form says, and what it keeps once it is filled.
    void (*offer)(const Opening& opening, FilledForm& filled) = nullptr;
    void (*keep)(const FilledForm& filled, app::CommandForm form, app::AppContext& context) = nullptr;

    /// The files, where the dialog itself chooses them out of what the window shows; null: the gathered ones.
    std::vector<std::filesystem::path> (*chooseFiles)(const FilledForm& filled,
                                                      const Opening& opening) = nullptr;
    OperationMessage noFiles{};
    OperationQuestion (*question)(const FilledForm& filled, const Opening& opening,
                                  const app::LanguageFile& language) = nullptr;

    ComposedAs composedAs = ComposedAs::Arguments;
    /// In its place where it hangs on what is filled in, such as one output for all files or one for each.
    ComposedAs (*chooseRoad)(app::CommandForm form, const FilledForm& filled) = nullptr;
    /// Any thread, and more than once for a file. Null: the terms of the ticked boxes.
    Composed (*compose)(const Composing& composing) = nullptr;
    /// Completes what the line has brought, behind each run of which something has come: of one file, or of
    /// all with the line. On the job's thread; can end a file otherwise.
    void (*afterRun)(const Composing& composing, std::span<exiftool::Outcome> outcomes) = nullptr;
    /// What a run has brought, for the list of that number. The dialog comes back with it, filled in as it
    /// was, and can run again until it is cancelled. Null: it is done when the job begins.
    std::vector<OperationResult> (*results)(const JobEnd& end, const FilledForm& filled) = nullptr;
    int resultList = 0;
    /// As Job::judgeAgain.
    void (*judgeAgain)(JobWork& work, const FilledForm& filled,
                       std::span<exiftool::Outcome> outcomes) = nullptr;
    /// As Job::atEnd.
    void (*atEnd)(const JobEnd& end, const FilledForm& filled) = nullptr;
    /// Null: as the settings say. False: no copies, whatever they say.
    bool (*makesSafetyCopies)(app::CommandForm form, const FilledForm& filled) = nullptr;
    bool onlyRenames = false;  ///< the contents stay as they are
    DesignedHabits designed{};
};

/// For atEnd of what leads its answer into the report.
inline void openReport(const JobEnd& end, const FilledForm& /*filled*/) {
    end.open(end.context.reportFile);
}

/// For makesSafetyCopies.
inline bool never(app::CommandForm /*form*/, const FilledForm& /*filled*/) {
    return false;
}

}  // namespace jobs
