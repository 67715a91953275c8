#include "payload/DisplayHexaDialog.h"

#include "controls/HexView.h"
#include "controls/PictureView.h"
#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "payload/PayloadFetch.h"
#include "payload/PayloadTexts.h"
#include "payload/ThumbnailWrite.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"

#include <QAction>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QThread>
#include <QVBoxLayout>

namespace payload {

namespace fs = std::filesystem;

namespace {

enum Control {
    kOutput = 924,
    kAsDump = 1008,
    kHolder = 81500,
    kFacts = 81501,
    kSaveAs = 81502,
    kAsPicture = 81503,
    kPicture = 81504,
    kReplace = 81505,
    kDelete = 81506,
    kText = 81507
};

QString number(std::size_t value) {
    return QLocale().toString(static_cast<qulonglong>(value));
}

}  // namespace

DisplayHexaDialog::DisplayHexaDialog(const jobs::OperationParts& parts, const tags::TagEditContext& edit,
                                     int templateNumber, QWidget* parent)
    : DarkModeDialogBase(parts.language, templateNumber, parent),
      parts_(parts),
      form_(app::commandFormOf(parts.context)),
      edit_(edit),
      places_(parts.context.tempPath, edit.title) {
    if (!hasForm()) return;
    setWindowTitle(edit_.title);
    makeViews();
    connectControls();
    fetch();
    showText();
    readPicture();
}

void DisplayHexaDialog::fetch() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const std::string fault = fetchPayload(parts_.context, parts_.runner, edit_, places_);
    QGuiApplication::restoreOverrideCursor();
    data_ = platform::MappedFile::Open(places_.fetched, platform::Links::Refused);
    // A value that was not read is not an empty one.
    if (!fault.empty() && data_ != nullptr && data_->bytes().empty()) data_.reset();
    const bool isEmpty = templateNumber() == kImageTemplate && (data_ == nullptr || data_->bytes().empty());
    if (isEmpty) offerNothing();
    if (data_ != nullptr) hexView_->setBytes(data_->bytes(), data_);
    if (data_ != nullptr && fault.empty()) kind_ = kindOfPayload(data_->bytes());
    if (auto* button = control<QPushButton>(kSaveAs)) button->setEnabled(data_ != nullptr && fault.empty());
    if (fault.empty()) {
        if (isEmpty) say(parts_.language.text(text::kNoBytes));
        return;
    }
    const bool isInPart = data_ != nullptr;
    if (isInPart && parts_.runner.wasStopped()) return say(parts_.language.text(text::kReadingStopped));
    say(parts_.language.formatted(isInPart ? text::kValueReadInPart : text::kValueNotRead,
                                  {platform::wide(fault)}));
}

void DisplayHexaDialog::offerNothing() {
    data_.reset();
    for (const int id : {kAsDump, kReplace, kDelete})
        if (auto* offer = control<QWidget>(id)) offer->hide();
}

DisplayHexaDialog::~DisplayHexaDialog() {
    if (pictureThread_ != nullptr) pictureThread_->wait();
    std::error_code error;
    fs::remove(places_.fetched, error);
    fs::remove(places_.behindHeader(), error);
    if (!picture_.empty()) fs::remove(picture_, error);
}

void DisplayHexaDialog::makeViews() {
    QWidget* holder = control<QWidget>(kHolder);
    auto* layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    stack_ = new QStackedWidget(holder);
    layout->addWidget(stack_);
    hexView_ = new controls::HexView(stack_);
    hexView_->setProperty(dialogs::kControlIdProperty, kOutput);
    hexView_->setShortLineFill(form_ == app::CommandForm::Corrected ? controls::ShortLineFill::Aligned
                                                                    : controls::ShortLineFill::FourBlanks);
    stack_->addWidget(hexView_);
    setFocusProxy(hexView_);
    if (templateNumber() != kImageTemplate) return;
    pictureView_ = new controls::PictureView(stack_);
    pictureView_->setProperty(dialogs::kControlIdProperty, kPicture);
    pictureView_->setToolTip(parts_.language.text(text::kZoomHint));
    stack_->addWidget(pictureView_);
}

void DisplayHexaDialog::connectControls() {
    const auto onClick = [this](int id, void (DisplayHexaDialog::*slot)()) {
        if (auto* button = control<QAbstractButton>(id))
            connect(button, &QAbstractButton::clicked, this, slot);
    };
    // What is only looked at leaves nothing to read again.
    onClick(dialogs::kOkControl, &DisplayHexaDialog::reject);
    onClick(kSaveAs, &DisplayHexaDialog::save);
    onClick(kAsDump, &DisplayHexaDialog::chooseView);
    if (templateNumber() == kImageTemplate) {
        onClick(kAsPicture, &DisplayHexaDialog::chooseView);
        onClick(kReplace, &DisplayHexaDialog::replaceThumbnail);
        onClick(kDelete, &DisplayHexaDialog::deleteThumbnail);
        for (const int id : {kReplace, kDelete})
            if (auto* button = control<QWidget>(id)) button->setVisible(canWriteThumbnail());
        if (auto* box = control<QWidget>(kAsPicture)) box->hide();
    }

    auto* copy = new QAction(parts_.language.text(text::kCopyRows), this);
    connect(copy, &QAction::triggered, hexView_, &controls::HexView::copySelection);
    auto* all = new QAction(parts_.language.text(text::kSelectAllRows), this);
    connect(all, &QAction::triggered, hexView_, &controls::HexView::selectAll);
    hexView_->addActions({copy, all});
    hexView_->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(hexView_, &controls::HexView::TooMuchToCopy, this, &DisplayHexaDialog::tellTooMuchToCopy);
}

void DisplayHexaDialog::showText() {
    auto* asDump = control<QCheckBox>(kAsDump);
    const bool isText = form_ == app::CommandForm::Corrected && data_ != nullptr && asDump != nullptr &&
                        isReadableText(data_->bytes());
    if (!isText) return;
    textView_ = new QPlainTextEdit(stack_);
    textView_->setProperty(dialogs::kControlIdProperty, kText);
    textView_->setReadOnly(true);
    // The keyboard marks and copies in it as in a field, and leaves it by Tab.
    textView_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    textView_->setTabChangesFocus(true);
    const std::span<const unsigned char> bytes = data_->bytes();
    textView_->setPlainText(
        QString::fromUtf8(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    stack_->addWidget(textView_);
    setFocusProxy(textView_);
    asDump->setChecked(false);
    chooseView();
}

void DisplayHexaDialog::readPicture() {
    if (pictureView_ == nullptr || data_ == nullptr || kind_ == PayloadKind::Other) return;
    picture_ = copyPicture(places_, data_->bytes(), kind_);
    const auto bytes = platform::MappedFile::Open(picture_, platform::Links::Refused);
    if (picture_.empty() || bytes == nullptr) return;
    say(parts_.language.text(text::kReadingPicture));
    pictureThread_.reset(QThread::create([this, bytes] {
        PictureRead picture = payload::readPicture(bytes->bytes());
        QMetaObject::invokeMethod(
            this, [this, picture = std::move(picture)] { showPicture(picture); }, Qt::QueuedConnection);
    }));
    pictureThread_->start();
}

void DisplayHexaDialog::showPicture(const PictureRead& picture) {
    pictureThread_->wait();
    pictureThread_.reset();
    if (picture.image.isNull()) {
        say(parts_.language.formatted(text::kPictureFailed, {picture.reason}));
        std::error_code error;
        fs::remove(picture_, error);
        picture_.clear();
    } else {
        const QString width = QString::number(picture.size.width());
        const QString height = QString::number(picture.size.height());
        const bool isWhole = picture.image.size() == picture.size;
        setWindowTitle(parts_.language.formatted(text::kPictureTitle, {edit_.title, width, height}));
        say(parts_.language.formatted(isWhole ? text::kPictureSize : text::kPictureReduced,
                                      {width, height, number(data_->bytes().size())}));
        pictureView_->setImage(picture.image);
        if (auto* box = control<QCheckBox>(kAsPicture)) {
            box->setChecked(true);
            box->show();
        }
        chooseView();
    }
    Q_EMIT PictureDecided();
}

void DisplayHexaDialog::chooseView() {
    const auto* asPicture = pictureView_ == nullptr ? nullptr : control<QCheckBox>(kAsPicture);
    auto* asDump = control<QCheckBox>(kAsDump);
    const bool showsPicture = !picture_.empty() && asPicture != nullptr && asPicture->isChecked();
    const bool showsText = textView_ != nullptr && asDump != nullptr && !asDump->isChecked();
    stack_->setCurrentWidget(showsPicture ? static_cast<QWidget*>(pictureView_)
                             : showsText  ? static_cast<QWidget*>(textView_)
                                          : static_cast<QWidget*>(hexView_));
    if (asDump == nullptr) return;
    asDump->setEnabled(!showsPicture);
    if (showsText) return;
    // The text's line ends are looked for once, which takes a moment in a large value.
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    hexView_->setMode(asDump->isChecked() ? controls::HexView::Mode::Dump : controls::HexView::Mode::Text);
    QGuiApplication::restoreOverrideCursor();
}

void DisplayHexaDialog::save() {
    const bool hasPicture = !picture_.empty();
    const SaveTypes types = typesToSave(data_->bytes(), kind_, hasPicture, form_);
    const fs::path proposed = edit_.filePath.parent_path() / places_.fetched.stem();
    dialogs::FileQuestion question{parts_.language.formatted(text::kSaveValue, {edit_.title}),
                                   types.types,
                                   {},
                                   types.extension,
                                   proposed};
    question.nameLabel = fileNameLabel(parts_.context.settings.main.language);
    const fs::path target = dialogs::chooseFileToSave(this, question);
    if (target.empty()) return;
    const auto source = hasPicture ? platform::MappedFile::Open(picture_, platform::Links::Refused) : data_;
    const std::span<const unsigned char> bytes = source != nullptr ? source->bytes() : data_->bytes();
    const std::string failure =
        platform::replaceFile(target, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    if (failure.empty()) return;
    dialogs::showMessage(this, {parts_.language.formatted(
                                    text::kNotSaved, {platform::display(target), platform::wide(failure)}),
                                dialogs::MessageIcon::Stop});
}

bool DisplayHexaDialog::canWriteThumbnail() const {
    if (templateNumber() != kImageTemplate || edit_.tagId < 0 || edit_.filePath.empty()) return false;
    const auto record = parts_.dictionary.FindTagById(static_cast<std::uint32_t>(edit_.tagId));
    return record && record->writable && record->name == u"ThumbnailImage";
}

void DisplayHexaDialog::replaceThumbnail() {
    if (mayWrite_ && !mayWrite_()) return;
    const dialogs::FileQuestion question{
        parts_.language.text(text::kChooseThumbnail),
        {parts_.language.text(text::kThumbnailPattern) + QStringLiteral(" (*.jpg *.jpeg)")},
        {},
        {},
        edit_.filePath.parent_path()};
    const fs::path chosen = dialogs::chooseFileToOpen(this, question);
    if (chosen.empty()) return;
    if (!isJpegFile(chosen)) {
        const QString message = parts_.language.formatted(text::kNoJpeg, {platform::display(chosen)});
        dialogs::showMessage(this, {message, dialogs::MessageIcon::Exclamation});
        return;
    }
    setJob(replaceThumbnailJob(parts_.language.text(text::kReplacingThumbnail), chosen, edit_.filePath));
    accept();
}

void DisplayHexaDialog::deleteThumbnail() {
    if (mayWrite_ && !mayWrite_()) return;
    const QString question =
        parts_.language.formatted(text::kDeleteThumbnail, {platform::display(edit_.filePath.filename())});
    const auto answer = dialogs::showMessage(this, {.text = question,
                                                    .icon = dialogs::MessageIcon::Question,
                                                    .buttons = QMessageBox::Yes | QMessageBox::No,
                                                    .defaultButton = QMessageBox::No});
    if (answer != QMessageBox::Yes) return;
    setJob(deleteThumbnailJob(parts_.language.text(text::kDeletingThumbnail), edit_.filePath));
    accept();
}

void DisplayHexaDialog::tellTooMuchToCopy() {
    const QString limit = QLocale().formattedDataSize(controls::HexView::kMostCopied);
    dialogs::showMessage(
        this, {parts_.language.formatted(text::kTooMuchToCopy, {limit}), dialogs::MessageIcon::Information});
}

void DisplayHexaDialog::say(const QString& text) {
    if (auto* label = control<QLabel>(kFacts)) label->setText(text);
}

}  // namespace payload
