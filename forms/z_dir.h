#pragma once

#include <QDialog>
#include <functional>
#include <string>

class QPushButton;

namespace ui {

class ChoiceBox;
class ElidedLabel;
class FolderList;

/// The directory chooser: browsing drives and folders instead of typing one.
class zDir : public QDialog {
    Q_OBJECT

  public:
    /// Takes the chosen folder as path text.
    using SetFolder = std::function<void(const std::string&)>;

    /// Opens on the stored folder, or the nearest one that is there. Ok gives what is chosen to
    /// `set_folder` before the dialog closes; any other way of closing changes nothing.
    zDir(QWidget* parent, SetFolder set_folder);

  private:
    void MakeControls();
    void PlaceControls();
    void Form_Load();
    void Drive1_Change();
    void Dir1_Change();
    void Command1_Click();
    /// Asks for a name, makes a folder of it in the open one, and opens that.
    void MakeNewFolder();
    void SetLabel1(const std::string& caption);

    SetFolder set_folder_;
    std::string label1_caption_;
    ChoiceBox* drive1_;
    FolderList* dir1_;
    ElidedLabel* label1_;
    ElidedLabel* system_folder_;  ///< where the system has the folder, if it says so differently
    QPushButton* command1_;
    QPushButton* command2_;
    QPushButton* new_folder_;
};

}  // namespace ui
