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
/// The settings and the file types file keep its state between two openings.
class frmNew : public QDialog {
    Q_OBJECT

  public:
    explicit frmNew(QWidget* parent);

    /// Called for every way of closing.
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

    /// Normalizes the folder box and sets the target folder; false if that is not writable.
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
    AddressLine* address_line_;   ///< what the crawl will request
    ElidedLabel* system_folder_;  ///< the system's path of the folder, if it differs
    CopyNotes* copy_notes_;       ///< what an earlier download has left in the folder
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
