#pragma once

#include <QListView>

namespace ui {

class SearchModel;

/// The pages that a search has found: the path of each, and the words around its first match with
/// the matches in bold. The first one is selected until the user selects another.
class SearchList : public QListView {
    Q_OBJECT

  public:
    SearchList(SearchModel* model, QWidget* parent);

    /// The selected row, or -1.
    int Row() const { return currentIndex().row(); }

    void keyboardSearch(const QString& typed) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ChooseAgain();

    SearchModel* model_;
    std::string chosen_;  ///< the path that the user selected, or ""
};

}  // namespace ui
