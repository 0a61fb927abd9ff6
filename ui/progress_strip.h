#pragma once

#include <QWidget>

class QPushButton;

namespace ui {

class ElidedLabel;
class ThinBar;
struct CrawlSummary;

/// How far a crawl is and what it has come to, below everything else: a thin bar, the same in
/// words, and a button for the whole of it.
class ProgressStrip : public QWidget {
    Q_OBJECT

  public:
    explicit ProgressStrip(QWidget* parent);

    void Show(const CrawlSummary& summary);

    /// Changes the words alone.
    void SetWords(const QString& words, bool warns = false);

    /// Shows `warning` in the place of the words until it is "".
    void Warn(const QString& warning);

    QPushButton& ReportButton() { return *report_; }

  private:
    void ShowWords();

    QString said_;
    bool says_warning_ = false;
    QString warning_;
    ThinBar* bar_;
    ElidedLabel* words_;
    QPushButton* report_;
};

}  // namespace ui
