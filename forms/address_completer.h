#pragma once

#include <QCompleter>
#include <QStringListModel>

class QKeyEvent;
class QLineEdit;

namespace ui {

/// Offers addresses used before while the user types into a box. Enter takes the selected offer. If
/// none is selected, Enter does what it does without offers.
class AddressCompleter : public QCompleter {
    Q_OBJECT

  public:
    /// Becomes the completer and a child of `box`.
    explicit AddressCompleter(QLineEdit* box);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Ignores a leading "http://", because addresses are stored without it.
    QStringList splitPath(const QString& typed) const override;

  private:
    /// Sends a key to the control that has the focus, if that is not the box. The focus returns
    /// from the closed list with a delay, and until then the list and, in its place, the box still
    /// get keys that are typed quickly.
    bool PassOn(QKeyEvent& key);
    /// Handles a key sent to the list of offers; false if the list must handle it.
    bool Handle(QKeyEvent& key);
    void Enter(const QKeyEvent& key);

    QLineEdit* box_;
    QStringListModel addresses_;
};

}  // namespace ui
