#pragma once

#include <QDialog>
#include <string>

class QLineEdit;
class QPushButton;

namespace ui {

class ElidedLabel;
class PageOpener;
class SearchList;
class SearchModel;

/// Searches the pages of a copy and opens them. Modeless. It deletes itself when it closes.
class SearchDialog : public QDialog {
    Q_OBJECT

  public:
    explicit SearchDialog(QWidget* parent);

    /// Shows the dialog over `parent`. If one is already open, it comes to the front.
    static SearchDialog* ShowOver(QWidget* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void MakeControls();
    void MakeButtons();
    void PlaceControls();
    void ConnectHandlers();

    void GoToWords();
    std::string Folder() const;
    void ChooseFolder();
    void SearchAgain();
    void OpenPage();
    void ShowOutcome();
    QString Outcome() const;

    SearchModel* model_;
    PageOpener* opener_;
    QLineEdit* words_;
    QLineEdit* folder_;
    QPushButton* choose_;
    ElidedLabel* system_folder_;
    SearchList* pages_;
    ElidedLabel* outcome_;
    QPushButton* open_;
    QPushButton* again_;
    QPushButton* close_;
};

}  // namespace ui
