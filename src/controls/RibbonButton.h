#pragma once

#include <QToolButton>

class QMenu;

namespace controls {

class CommandAction;

/// A button of the ribbon: large (icon 32 over the text) or small (icon 16 and the text), with or without a
/// menu. A click does not change the checked state; the program does that when the command has worked.
class RibbonButton : public QToolButton {
    Q_OBJECT

 public:
    enum class Shape { Large, Small };
    /// What the menu, if there is one, takes of the button.
    enum class MenuPart { None, Arrow, Whole };

    explicit RibbonButton(Shape shape, QWidget* parent = nullptr);

    /// Takes tool tip, states, object name and the property `commandId` of the command. Icon and label are
    /// the button's own; whoever made it triggers the command when it is clicked.
    void showCommand(const CommandAction& command);
    /// False when the command cannot run now. The menu of a split button can be opened all the same.
    bool canRun() const { return canRun_; }

    Shape shape() const { return shape_; }
    /// The text as it is to be read; an ampersand in it is one.
    void setLabel(const QString& label);
    QString label() const { return label_; }
    /// The menu becomes a child of the button.
    void setButtonMenu(QMenu* menu, MenuPart part);
    /// Looks like a menu button; whoever made it opens something when it is clicked.
    void showAsDropDown();
    MenuPart menuPart() const { return menuPart_; }
    /// The arrow of a split button, in the button's coordinates; empty for others.
    QRect arrowRect() const;

    /// What is typed for the button, and for the menu of its arrow; empty: none.
    void setKeyTips(const QString& button, const QString& arrow);
    QString keyTip() const { return keyTip_; }
    QString arrowKeyTip() const { return arrowKeyTip_; }
    /// Over the lower edge of which its tip, or the one of its arrow, is shown; in the button's coordinates.
    QRect keyTipPlace() const;
    QRect arrowKeyTipPlace() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// Height of a small button, three of which stand over each other, in the given font.
    static int smallHeight(const QFontMetrics& metrics);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& position) const override;
    void leaveEvent(QEvent* event) override;
    void nextCheckState() override {}

 private:
    void paintGround(QPainter& painter) const;
    void paintLarge(QPainter& painter) const;
    void paintSmall(QPainter& painter) const;
    void paintIcon(QPainter& painter, QPoint topLeft, int side) const;
    void paintChevron(QPainter& painter, QPointF center) const;
    QColor textColor(bool enabled) const;

    Shape shape_;
    MenuPart menuPart_ = MenuPart::None;
    QString label_;
    QString keyTip_;
    QString arrowKeyTip_;
    bool overArrow_ = false;
    bool canRun_ = true;
};

}  // namespace controls
