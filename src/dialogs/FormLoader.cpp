#include "dialogs/FormLoader.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QDialogButtonBox>
#include <QUiLoader>

namespace dialogs {

namespace {

class IntoDialogLoader : public QUiLoader {
 public:
    explicit IntoDialogLoader(QWidget& dialog) : dialog_(dialog) {}

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        if (parent != nullptr) return QUiLoader::createWidget(className, parent, name);
        dialog_.setObjectName(name);
        return &dialog_;
    }

 private:
    QWidget& dialog_;
};

void numberStandardButtons(QWidget& dialog) {
    for (QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* button : box->buttons()) {
            if (button->property(kControlIdProperty).isValid()) continue;
            const QDialogButtonBox::ButtonRole role = box->buttonRole(button);
            if (role == QDialogButtonBox::AcceptRole) {
                button->setProperty(kControlIdProperty, kOkControl);
                const QString text = box->property(kOkTextProperty).toString();
                if (!text.isEmpty()) button->setText(text);
            }
            if (role == QDialogButtonBox::RejectRole) button->setProperty(kControlIdProperty, kCancelControl);
        }
    }
}

}  // namespace

QString loadForm(QWidget& dialog, const QByteArray& form) {
    QBuffer buffer;
    buffer.setData(form);
    buffer.open(QIODevice::ReadOnly);
    IntoDialogLoader loader(dialog);
    if (loader.load(&buffer) == nullptr) return loader.errorString();
    numberStandardButtons(dialog);
    return {};
}

QWidget* findControl(const QWidget& dialog, int controlId) {
    for (QWidget* widget : dialog.findChildren<QWidget*>()) {
        const QVariant id = widget->property(kControlIdProperty);
        if (id.isValid() && id.toInt() == controlId) return widget;
    }
    return nullptr;
}

}  // namespace dialogs
