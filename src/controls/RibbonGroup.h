#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

class QHBoxLayout;
class QVBoxLayout;

namespace controls {

class RibbonButton;

/// A group of the ribbon: its buttons over its name, or, when there is no room, one drop-down that shows them
/// in a pop-up. The buttons are the same objects in both forms.
class RibbonGroup : public QWidget {
    Q_OBJECT

 public:
    RibbonGroup(const QString& id, const QString& title, const QIcon& icon, int priority,
                QWidget* parent = nullptr);

    QString title() const { return title_; }
    int priority() const { return priority_; }
    /// Appends; the group becomes its owner. Small buttons fill columns of three.
    void addButton(RibbonButton* button);
    const std::vector<RibbonButton*>& buttons() const { return buttons_; }

    int fullWidth() const;
    int collapsedWidth() const;
    void setCollapsed(bool collapsed);
    bool isCollapsed() const { return collapsed_; }
    /// The drop-down that stands for the collapsed group.
    RibbonButton* dropDown() const { return dropDown_; }
    /// Shows the buttons of the collapsed group under it.
    void openPopup();
    void closePopup();
    bool isPopupOpen() const;

    /// Height of a group in the given font: 84 with the usual one.
    static int bodyHeight(const QFont& font);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    int titleHeight() const;
    void placeBody();

    QString title_;
    int priority_;
    bool collapsed_ = false;
    QWidget* body_;
    QHBoxLayout* columns_;
    QVBoxLayout* smallColumn_ = nullptr;
    RibbonButton* dropDown_;
    QWidget* popup_;
    std::vector<RibbonButton*> buttons_;
};

}  // namespace controls
