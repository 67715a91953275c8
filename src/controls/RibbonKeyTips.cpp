#include "controls/RibbonKeyTips.h"

#include <QPainter>
#include <QSet>
#include <algorithm>

#include "controls/RibbonColors.h"

namespace controls {
namespace {

constexpr QChar kLongTip = QLatin1Char('Z');
constexpr int kPadding = 4;
constexpr qreal kRadius = 3;

bool canBeTyped(QChar letter) {
    return (letter >= QLatin1Char('A') && letter <= QLatin1Char('Z')) ||
           (letter >= QLatin1Char('1') && letter <= QLatin1Char('9'));
}

/// What may stand for a text, the best first: the first letters of its words, its other letters, digits, any.
QString candidates(const QString& text) {
    QString first;
    QString others;
    bool wordBegins = true;
    for (const QChar letter : text.toUpper()) {
        if (canBeTyped(letter)) (wordBegins ? first : others).append(letter);
        wordBegins = letter.isSpace();
    }
    QString all = first + others;
    for (char digit = '1'; digit <= '9'; ++digit) all.append(QLatin1Char(digit));
    for (char letter = 'A'; letter <= 'Z'; ++letter) all.append(QLatin1Char(letter));
    return all;
}

/// The tips of one level.
class TipGiver {
 public:
    void take(const QString& tip) {
        if (!tip.isEmpty()) taken_.insert(tip);
    }
    /// A single letter; when all are gone, one of the long ones.
    QString give(const QString& text) {
        for (const QChar letter : candidates(text)) {
            if (letter == kLongTip || taken_.contains(letter)) continue;
            taken_.insert(letter);
            return letter;
        }
        return giveLong(text);
    }
    QString giveLong(const QString& text) {
        for (const QChar letter : candidates(text)) {
            const QString tip = QString(kLongTip) + letter;
            if (taken_.contains(tip)) continue;
            taken_.insert(tip);
            return tip;
        }
        return {};
    }

 private:
    QSet<QString> taken_;
};

/// The first line of a menu's letters; a mnemonic is one letter of the text itself or there is none.
void assignMnemonics(std::vector<RibbonItem>& entries, const RibbonSource& source) {
    QSet<QChar> taken;
    for (const RibbonItem& entry : entries)
        if (!entry.keyTip.isEmpty()) taken.insert(entry.keyTip.at(0));
    for (RibbonItem& entry : entries) {
        assignMnemonics(entry.entries, source);
        if (entry.kind == RibbonItem::Kind::Separator || !entry.keyTip.isEmpty()) continue;
        const QString text = source.text(entry.text).toUpper();
        for (const QChar letter : candidates(text)) {
            if (taken.contains(letter) || !text.contains(letter)) continue;
            taken.insert(letter);
            entry.keyTip = letter;
            break;
        }
    }
}

void assignInTab(RibbonTabMarkup& tab, const RibbonSource& source) {
    TipGiver giver;
    for (RibbonGroupMarkup& group : tab.groups) {
        giver.take(group.keyTip);
        for (RibbonItem& item : group.items) giver.take(item.keyTip);
    }
    for (RibbonGroupMarkup& group : tab.groups) {
        if (group.keyTip.isEmpty()) group.keyTip = giver.giveLong(source.text(group.text));
        for (RibbonItem& item : group.items) {
            const QString text = source.text(item.text);
            if (item.keyTip.isEmpty()) item.keyTip = giver.give(text);
            if (item.kind == RibbonItem::Kind::Split) item.arrowKeyTip = giver.give(text);
            assignMnemonics(item.entries, source);
        }
    }
}

/// One tip, drawn with the colours of the window turned round.
class KeyTipLabel : public QWidget {
 public:
    KeyTipLabel(const KeyTipTarget& target, QWidget* window) : QWidget(window), tip_(target.tip) {
        setObjectName(QStringLiteral("keyTip-") + tip_);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        QFont bold = window->font();
        bold.setBold(true);
        setFont(bold);
        const int height = fontMetrics().height() + 1;
        resize(std::max(height, fontMetrics().horizontalAdvance(tip_) + 2 * kPadding), height);
        const QPoint foot(target.place.center().x(), target.place.bottom());
        const QPoint place = target.widget->mapTo(window, foot) - QPoint(width() / 2, height / 2);
        move(std::clamp(place.x(), 0, std::max(0, window->width() - width())),
             std::clamp(place.y(), 0, std::max(0, window->height() - height)));
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        const RibbonColors colors(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(colors.body);
        painter.setBrush(colors.text);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
        painter.setPen(colors.body);
        painter.drawText(rect(), Qt::AlignCenter, tip_);
    }

 private:
    QString tip_;
};

}  // namespace

void assignKeyTips(RibbonMarkup& markup, const RibbonSource& source) {
    TipGiver giver;
    for (const RibbonTabMarkup& tab : markup.tabs) giver.take(tab.keyTip);
    for (RibbonTabMarkup& tab : markup.tabs) {
        if (tab.keyTip.isEmpty()) tab.keyTip = giver.give(source.text(tab.text));
        assignInTab(tab, source);
    }
}

QString withMnemonic(const QString& text, const QString& keyTip) {
    QString marked = text;
    marked.replace(QLatin1Char('&'), QLatin1String("&&"));
    const auto at = keyTip.isEmpty() ? -1 : marked.indexOf(keyTip, 0, Qt::CaseInsensitive);
    if (at >= 0) marked.insert(at, QLatin1Char('&'));
    return marked;
}

RibbonKeyTips::~RibbonKeyTips() {
    hide();
}

void RibbonKeyTips::show(std::vector<KeyTipTarget> targets) {
    hide();
    targets_ = std::move(targets);
    showMatching();
}

void RibbonKeyTips::hide() {
    for (const QPointer<QWidget>& label : labels_) delete label;
    labels_.clear();
    targets_.clear();
    typed_.clear();
}

void RibbonKeyTips::showMatching() {
    for (const QPointer<QWidget>& label : labels_) delete label;
    labels_.clear();
    for (const KeyTipTarget& target : targets_) {
        if (!target.widget || !target.tip.startsWith(typed_)) continue;
        auto* label = new KeyTipLabel(target, target.widget->window());
        label->show();
        label->raise();
        labels_.push_back(label);
    }
}

RibbonKeyTips::Answer RibbonKeyTips::type(QChar letter, KeyTipTarget* chosen) {
    const QString typed = typed_ + letter.toUpper();
    for (const KeyTipTarget& target : targets_) {
        if (!target.widget || target.tip != typed) continue;
        *chosen = target;
        hide();
        return Answer::Chosen;
    }
    const bool more = std::any_of(targets_.begin(), targets_.end(), [&](const KeyTipTarget& target) {
        return target.widget && target.tip.startsWith(typed);
    });
    if (!more) return Answer::Unknown;
    typed_ = typed;
    showMatching();
    return Answer::More;
}

bool RibbonKeyTips::takeBack() {
    if (typed_.isEmpty()) return false;
    typed_.clear();
    showMatching();
    return true;
}

}  // namespace controls
