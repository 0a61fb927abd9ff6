#pragma once

#include <QWidget>
#include <cstdint>

class QProgressBar;

namespace ui {

class ElidedLabel;

/// How far a crawl is, below everything else: a thin bar, and the same in words.
class ProgressStrip : public QWidget {
    Q_OBJECT

  public:
    explicit ProgressStrip(QWidget* parent);

    /// Shows `words`, and of `known` files `done`; no bar when none are known.
    void Show(std::int64_t done, std::int64_t known, const QString& words);

    /// Changes the words alone.
    void SetWords(const QString& words);

    /// Shows `warning` in the place of the words until it is "".
    void Warn(const QString& warning);

  private:
    void ShowWords();

    QString said_;
    QString warning_;
    QProgressBar* bar_;
    ElidedLabel* words_;
};

}  // namespace ui
