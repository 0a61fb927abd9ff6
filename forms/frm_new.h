#pragma once

#include <QDialog>
#include <string>

#include "setup/file_types.h"
#include "setup/shared_list.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ui {

class AddressLine;
class ByteList;
class ChoiceBox;
class CopyNotes;
class ElidedLabel;

/// The New Site Wizard: which site to download into which folder, the timeout and the file types.
/// What it knows between two openings stands in the settings and in the file types file.
class frmNew : public QDialog {
    Q_OBJECT

  public:
    explicit frmNew(QWidget* parent);

    /// Every way of closing leads here.
    void done(int result) override;

  protected:
    bool event(QEvent* event) override;

  private:
    // frm_new_controls.cpp
    void MakeControls();
    void MakeMainArea();
    void MakeAddressBoxes();
    void MakeButtons();
    void MakeOptionsArea();
    void MakeCopyNotes();
    void MakeRoomForNote(bool shown);
    void ConnectHandlers();

    void Form_Load();
    void Form_Unload();
    void txtURL_Change();
    void txtDir_Change();
    void Command1_Click();  ///< Download Website Now!
    void Command2_Click();  ///< Close
    void Command6_Click();  ///< Options
    void Command7_Click();  ///< the picture button
    void Command8_Click();  ///< Filters

    /// Normalises the folder box and makes its folder the target folder; false when it cannot be
    /// written into.
    bool SetToInDIR();
    void ShowSystemFolder();
    void LookForCopy();
    std::string TxtDir() const;
    void SetTxtDir(const std::string& folder);
    void ApplyTimeout(const std::string& seconds);

    // frm_new_file_types.cpp
    void LoadFileTypesList();
    void TakeOthersTypes();
    void SaveFileTypes();
    void ListDefaultTypes();
    void MakeFileTypesFile();
    void Command3_Click();  ///< Add
    void Command4_Click();  ///< Delete
    void Command5_Click();  ///< Set Default

    bool unloaded_ = false;
    bas_General::SharedList types_file_{bas_General::FileTypesFile()};
    QLineEdit* txt_url_;
    QLineEdit* txt_dir_;
    AddressLine* address_line_;   ///< what the address will make the crawl ask for
    ElidedLabel* system_folder_;  ///< where the system has the folder, if it says so differently
    CopyNotes* copy_notes_;       ///< what an earlier download has left there
    QPushButton* command1_;
    QPushButton* command2_;
    QPushButton* command6_;
    QPushButton* command7_;
    QPushButton* command8_;
    QFrame* frame1_;
    ByteList* list1_;
    QPushButton* command3_;
    QPushButton* command4_;
    QPushButton* command5_;
    ChoiceBox* list2_;
};

}  // namespace ui
