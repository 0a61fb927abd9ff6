#include "widgets/note_line.h"

#include <QPainter>
#include <algorithm>

#include "widgets/elided_label.h"
#include "widgets/icons.h"
#include "widgets/label_font.h"
#include "widgets/link_button.h"
#include "widgets/twips.h"

namespace ui {

namespace {

constexpr int kGap = 75;

class WarningSign : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        ButtonIcon(Picture::Warning).paint(&painter, rect());
    }
};

}  // namespace

NoteLine::NoteLine(const char* name, QWidget* parent)
    : QWidget(parent), icon_(new WarningSign(this)), text_(new ElidedLabel(name, "", this)) {
    setFont(SmallLabelFont());
    link_ = new LinkButton(name, this);
    link_->setObjectName(QLatin1String(name) + "Link");
    connect(link_, &LinkButton::clicked, this, &NoteLine::LinkClicked);
    Remark("");
}

QWidget* NoteLine::Link() const {
    return link_;
}

void NoteLine::Remark(const QString& text) {
    Show(text, false, "");
}

void NoteLine::Warn(const QString& text, const QString& link) {
    Show(text, true, link);
}

void NoteLine::Show(const QString& text, bool warning, const QString& link) {
    text_->setText(text);
    text_->SetQuiet(!warning);
    text_->SetWarning(warning);
    icon_->setVisible(warning);
    if (link_->text() != link) link_->setText(link);
    link_->setVisible(!link.isEmpty());
    Arrange();
}

void NoteLine::resizeEvent(QResizeEvent*) {
    Arrange();
}

void NoteLine::Arrange() {
    const int gap = Twips(kGap);
    const int side = icon_->isHidden() ? 0 : height();
    icon_->setGeometry(0, 0, side, side);
    const int left = side > 0 ? side + gap : 0;
    // A long server name in the link must not displace the text that explains it.
    const int link = link_->isHidden() ? 0 : std::min(link_->sizeHint().width(), width() * 3 / 5);
    const int room = std::max(0, width() - left - (link > 0 ? link + gap : 0));
    text_->setGeometry(left, 0, std::min(room, text_->sizeHint().width()), height());
    link_->setGeometry(text_->geometry().right() + 1 + gap, 0, link, height());
}

}  // namespace ui
