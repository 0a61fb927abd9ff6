#pragma once

#include <QCompleter>
#include <QStringListModel>

class QKeyEvent;
class QLineEdit;

namespace ui {

/// Offers the addresses that were used before, while one is typed into a box. Enter takes the one
/// that is chosen; while none is, it does what it does without offers.
class AddressCompleter : public QCompleter {
    Q_OBJECT

  public:
    /// Becomes the completer of `box`, and its child.
    explicit AddressCompleter(QLineEdit* box);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// "http://" in front finds what was noted without it.
    QStringList splitPath(const QString& typed) const override;

  private:
    /// Whether nobody else needs to handle a key that the list of offers got.
    bool Handle(QKeyEvent& key);
    void Enter(const QKeyEvent& key);

    QLineEdit* box_;
    QStringListModel addresses_;
};

}  // namespace ui
