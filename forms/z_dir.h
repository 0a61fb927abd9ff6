#pragma once

#include <QDialog>
#include <functional>
#include <string>

class QPushButton;

namespace ui {

class ChoiceBox;
class ElidedLabel;
class FolderList;

/// The directory chooser: browse drives and folders instead of typing a path.
class zDir : public QDialog {
    Q_OBJECT

  public:
    /// Receives the chosen folder as path text.
    using SetFolder = std::function<void(const std::string&)>;

    /// Opens at the stored folder, or its nearest existing parent. Ok passes the chosen folder to
    /// `set_folder` before the dialog closes. Closing it any other way changes nothing.
    zDir(QWidget* parent, SetFolder set_folder);

  private:
    void MakeControls();
    void PlaceControls();
    void Form_Load();
    void Drive1_Change();
    void Dir1_Change();
    void Command1_Click();
    /// Asks for a name, creates that folder in the open one, and opens it.
    void MakeNewFolder();
    void SetLabel1(const std::string& caption);

    SetFolder set_folder_;
    std::string label1_caption_;
    ChoiceBox* drive1_;
    FolderList* dir1_;
    ElidedLabel* label1_;
    ElidedLabel* system_folder_;  ///< the system's path of the folder, if it differs
    QPushButton* command1_;
    QPushButton* command2_;
    QPushButton* new_folder_;
};

}  // namespace ui
