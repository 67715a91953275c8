#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"
#include "payload/Payload.h"
#include "payload/PictureRead.h"
#include "platform/MappedFile.h"
#include "tags/TagEditContext.h"

#include <functional>
#include <memory>

class QLabel;
class QPlainTextEdit;
class QStackedWidget;
class QThread;

namespace controls {
class HexView;
class PictureView;
}  // namespace controls

namespace payload {

/// Shows a tag's value: its bytes as a dump or as text; in the corrected form a value that is a text as such,
/// with the bytes a step further; in the image view as a picture when they are one,
/// and saves them. In the image view the thumbnail of a JPEG can be replaced or deleted; run() answers 1 only
/// then, with that as its job. The value is fetched when the dialog is made; one that could not be read, or
/// not wholly, is told as such and neither shown as a picture nor saved. GUI thread; a picture is decoded on
/// a thread of the dialog's own.
class DisplayHexaDialog : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kPlainTemplate = 136;
    static constexpr int kImageTemplate = 148;

    DisplayHexaDialog(const jobs::OperationParts& parts, const tags::TagEditContext& edit, int templateNumber,
                      QWidget* parent);
    ~DisplayHexaDialog() override;

    /// Asked before the thumbnail is replaced or deleted; tells itself why it may not be.
    void setMayWrite(std::function<bool()> mayWrite) { mayWrite_ = std::move(mayWrite); }

    /// Whether a picture is being decoded; PictureDecided tells the end.
    bool isReadingPicture() const { return pictureThread_ != nullptr; }

 Q_SIGNALS:
    /// The picture is shown, or it is certain that there is none.
    void PictureDecided();

 private:
    void makeViews();
    void fetch();
    /// For a value without bytes.
    void offerNothing();
    void connectControls();
    void showText();
    void readPicture();
    void showPicture(const PictureRead& picture);
    void chooseView();
    void save();
    bool canWriteThumbnail() const;
    void replaceThumbnail();
    void deleteThumbnail();
    void tellTooMuchToCopy();
    void say(const QString& text);

    jobs::OperationParts parts_;
    std::function<bool()> mayWrite_;
    const app::CommandForm form_;
    tags::TagEditContext edit_;
    PayloadPlaces places_;
    std::shared_ptr<const platform::MappedFile> data_;
    PayloadKind kind_ = PayloadKind::Other;
    std::filesystem::path picture_;  ///< the copy that is shown; empty without one
    std::unique_ptr<QThread> pictureThread_;
    QStackedWidget* stack_ = nullptr;
    controls::HexView* hexView_ = nullptr;
    QPlainTextEdit* textView_ = nullptr;            ///< for a value that is read as a text
    controls::PictureView* pictureView_ = nullptr;  ///< in the image view only
};

}  // namespace payload
