#pragma once

#include <QDialog>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ui {

class ByteList;

/// The keyword filters. Modeless. The dialog deletes itself when closed. However it is closed, its
/// list becomes the filters.
class zFilter : public QDialog {
    Q_OBJECT

  public:
    explicit zFilter(QWidget* parent);
    ~zFilter() override;

    /// Shows the dialog over `parent`. There is at most one: an open dialog moves to `parent`, so
    /// that it is usable while `parent` is modal.
    static zFilter* ShowOver(QWidget* parent);

    /// Puts `keyword` into the box, for the user to shorten and add.
    void Suggest(const std::string& keyword);

    void done(int result) override;

  protected:
    bool event(QEvent* event) override;

  private:
    void MakeControls();
    void MakeTexts();
    void PlaceControls();
    void Form_Load();
    void TakeOthersKeywords();
    void Form_Unload();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    bool unloaded_ = false;
    QLineEdit* text1_;
    ByteList* list1_;
    QPushButton* command1_;
    QPushButton* command2_;
    QPushButton* command3_;
    QPushButton* command4_;
    QLabel* label1_;
    QLabel* label2_;
    QLabel* label3_;
    QLabel* label4_;
};

}  // namespace ui
