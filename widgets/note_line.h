#pragma once

#include <QWidget>

namespace ui {

class ElidedLabel;
class LinkButton;

/// A line below a box: a remark in a quiet colour, or a warning with an icon and optionally a link
/// that fixes the problem.
///
/// The label's object name is that of the line; the link's has "Link" appended.
class NoteLine : public QWidget {
    Q_OBJECT

  public:
    NoteLine(const char* name, QWidget* parent);

    /// Shows a remark; "" clears the line.
    void Remark(const QString& text);

    /// Shows a warning. `link` is the link's caption, with "&" before the letter that presses it
    /// together with Alt; "" for none.
    void Warn(const QString& text, const QString& link = {});

    QWidget* Link() const;

  signals:
    void LinkClicked();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Show(const QString& text, bool warning, const QString& link);
    void Arrange();

    QWidget* icon_;
    ElidedLabel* text_;
    LinkButton* link_;
};

}  // namespace ui
