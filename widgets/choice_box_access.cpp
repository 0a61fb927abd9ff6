#include "widgets/choice_box_access.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QLineEdit>

#include "widgets/choice_box.h"

namespace ui {

namespace {

/// A combo box for screen readers. Its children are its list and, if it is editable, its text box.
class ChoiceBoxAccess : public QAccessibleWidget {
  public:
    explicit ChoiceBoxAccess(ChoiceBox* box)
        : QAccessibleWidget(box, QAccessible::ComboBox), box_(box) {}

    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? box_->currentText() : QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box_->view()->isVisible();
        state.editable = box_->isEditable();
        return state;
    }
    int childCount() const override { return box_->isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        if (index == 0) return QAccessible::queryAccessibleInterface(box_->view());
        return index == 1 ? QAccessible::queryAccessibleInterface(box_->lineEdit()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == box_->view()) return 0;
        return box_->isEditable() && child->object() == box_->lineEdit() ? 1 : -1;
    }
    QStringList actionNames() const override { return {showMenuAction()}; }
    void doAction(const QString& name) override {
        if (name != showMenuAction()) return;
        box_->view()->isVisible() ? box_->hidePopup() : box_->showPopup();
    }

  private:
    ChoiceBox* box_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    auto* const box = qobject_cast<ChoiceBox*>(object);
    return box == nullptr ? nullptr : new ChoiceBoxAccess(box);
}

}  // namespace

void InstallChoiceBoxAccess() {
    // Qt ignores a factory that is already installed.
    QAccessible::installFactory(MakeAccess);
}

}  // namespace ui
