#include "ui/progress_strip.h"

#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/elided_label.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {
constexpr int kEdge = 180;
constexpr int kThickness = 75;
/// The bar's own range: counts of files pass the bar's 32 bits.
constexpr int kSteps = 1000;
}  // namespace

ProgressStrip::ProgressStrip(QWidget* parent)
    : QWidget(parent), bar_(new QProgressBar(this)), words_(new ElidedLabel("Progress", "", this)) {
    setFont(LabelFont());
    bar_->setObjectName("ProgressBar");
    bar_->setAccessibleName("Files done of files found so far");
    bar_->setTextVisible(false);
    bar_->setRange(0, kSteps);
    bar_->setFixedHeight(Twips(kThickness));
    // The window is laid out once, not anew when a crawl begins.
    QSizePolicy stays = bar_->sizePolicy();
    stays.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(stays);
    bar_->hide();
    words_->setFixedHeight(Twips(270));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Twips(kEdge), 0, Twips(kEdge), Twips(90));
    column->setSpacing(Twips(45));
    column->addWidget(bar_);
    column->addWidget(words_);
}

void ProgressStrip::Show(std::int64_t done, std::int64_t known, const QString& words) {
    bar_->setVisible(known > 0);
    if (known > 0) bar_->setValue(static_cast<int>(std::min(done, known) * kSteps / known));
    SetWords(words);
}

void ProgressStrip::SetWords(const QString& words) {
    said_ = words;
    ShowWords();
}

void ProgressStrip::Warn(const QString& warning) {
    warning_ = warning;
    ShowWords();
}

void ProgressStrip::ShowWords() {
    const QString& words = warning_.isEmpty() ? said_ : warning_;
    if (words_->text() != words) words_->setText(words);
    words_->SetWarning(!warning_.isEmpty());
}

}  // namespace ui
