#include "ui/progress_strip.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/local_text.h"
#include "ui/crawl_summary.h"
#include "ui/thin_bar.h"
#include "widgets/controls.h"
#include "widgets/elided_label.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {
constexpr int kEdge = 180;
/// The least width that has room for the text and two buttons, in twips.
constexpr int kLeastWithCopy = 6000;
/// The bar's own range, because file counts may exceed the bar's 32 bits.
constexpr int kSteps = 1000;
}  // namespace

ProgressStrip::ProgressStrip(QWidget* parent)
    : QWidget(parent),
      bar_(new ThinBar("ProgressBar", this)),
      words_(new ElidedLabel("Progress", "", this)),
      copy_(MakeFormButton("StripOpenCopy", "Open the Copy", this)),
      report_(MakeFormButton("Report", "Report...", this)) {
    setFont(LabelFont());
    bar_->setAccessibleName("Files saved of files found so far");
    bar_->setRange(0, kSteps);
    // Keep the layout the same when the bar appears at the start of a crawl.
    QSizePolicy stays = bar_->sizePolicy();
    stays.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(stays);
    bar_->hide();
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    copy_->setToolTip("The start page of the copy (Ctrl+Shift+O)");
    copy_->hide();
    report_->setShortcut(Qt::CTRL | Qt::Key_R);
    report_->setToolTip("What became of each address (Ctrl+R)");
    report_->setEnabled(false);

    auto* line = new QHBoxLayout;
    line->setSpacing(Twips(120));
    line->addWidget(words_, 1);
    line->addWidget(copy_);
    line->addWidget(report_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Twips(kEdge), 0, Twips(kEdge), Twips(90));
    column->setSpacing(Twips(60));
    column->addWidget(bar_);
    column->addLayout(line);
}

void ProgressStrip::Show(const CrawlSummary& summary) {
    bar_->setVisible(summary.known > 0);
    if (summary.known > 0) {
        bar_->setValue(static_cast<int>(summary.done * kSteps / summary.known));
    }
    bar_->SetAlarming(!summary.is_well);
    report_->setEnabled(summary.known > 0);
    SetWords(platform::FromBytes(summary.words), summary.warns);
}

void ProgressStrip::SetWords(const QString& words, bool warns) {
    said_ = words;
    says_warning_ = warns;
    ShowWords();
}

void ProgressStrip::Warn(const QString& warning) {
    warning_ = warning;
    ShowWords();
}

void ProgressStrip::OfferCopy(bool offered) {
    copy_offered_ = offered;
    ShowCopyButton();
}

void ProgressStrip::resizeEvent(QResizeEvent*) {
    ShowCopyButton();
}

void ProgressStrip::ShowCopyButton() {
    copy_->setVisible(copy_offered_ && width() >= Twips(kLeastWithCopy));
}

void ProgressStrip::ShowWords() {
    const QString& words = warning_.isEmpty() ? said_ : warning_;
    const bool warns = says_warning_ || !warning_.isEmpty();
    if (words_->text() == words && words_->IsWarning() == warns) return;
    words_->setText(words);
    const bool begins_to_warn = warns && !words_->IsWarning();
    words_->SetWarning(warns);
    if (!begins_to_warn) return;
    // Screen readers announce the warning at once instead of on request.
    QAccessibleEvent alert(words_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace ui
