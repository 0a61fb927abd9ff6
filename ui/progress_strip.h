#pragma once

#include <QWidget>

class QPushButton;

namespace ui {

class ElidedLabel;
class ThinBar;
struct CrawlSummary;

/// A crawl's progress and results, at the bottom of the window: a thin bar, a line of text, a
/// button for the full report, and after the crawl one for the copy.
class ProgressStrip : public QWidget {
    Q_OBJECT

  public:
    explicit ProgressStrip(QWidget* parent);

    void Show(const CrawlSummary& summary);

    /// Changes only the text.
    void SetWords(const QString& words, bool warns = false);

    /// Shows `warning` instead of the text until it is "".
    void Warn(const QString& warning);

    /// Whether there is a button that opens the copy. A narrow window leaves its room to the text.
    void OfferCopy(bool offered);

    QPushButton& CopyButton() { return *copy_; }
    QPushButton& ReportButton() { return *report_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowWords();
    void ShowCopyButton();

    QString said_;
    bool says_warning_ = false;
    QString warning_;
    bool copy_offered_ = false;
    ThinBar* bar_;
    ElidedLabel* words_;
    QPushButton* copy_;
    QPushButton* report_;
};

}  // namespace ui
