#pragma once

#include <QWidget>

namespace ui {

class ElidedLabel;
class LinkButton;

/// A line below a box: a remark in a quiet colour, or a warning with its icon and perhaps a link
/// that mends what it warns of.
///
/// Its label has the line's own name, and its link that name with "Link" behind.
class NoteLine : public QWidget {
    Q_OBJECT

  public:
    NoteLine(const char* name, QWidget* parent);

    /// "" leaves the line empty.
    void Remark(const QString& text);

    /// `link` is the link's caption, with "&" before the letter that presses it together with Alt;
    /// "" for a warning without one.
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
