#include <string>

#include "forms/byte_list.h"
#include "forms/frm_new.h"
#include "platform/services.h"
#include "setup/file_types.h"
#include "text/text.h"

namespace ui {

namespace {

/// A dot and at most four more characters.
constexpr std::size_t kLongestType = 5;

}  // namespace

void frmNew::LoadFileTypesList() {
    if (bas_General::MakeFirstFileTypesFile()) ListDefaultTypes();
    // On a first run the defaults are in the list already and appear a second time.
    for (const std::string& type : bas_General::ReadFileTypes())
        list1_->AddItem(type);
    types_file_.Know();
}

void frmNew::TakeOthersTypes() {
    if (const auto merged = types_file_.WithOthersChanges(list1_->Items())) {
        list1_->SetItems(*merged);
    }
}

void frmNew::SaveFileTypes() {
    bas_General::WriteFileTypes(list1_->Items());
    types_file_.Know();
}

void frmNew::ListDefaultTypes() {
    list1_->SetItems(bas_General::DefaultFileTypes());
}

void frmNew::MakeFileTypesFile() {
    ListDefaultTypes();
    SaveFileTypes();
}

void frmNew::Command3_Click() {
    platform::MessageBoxes& boxes = platform::System().boxes;
    const std::string answer = boxes.InputBox("Enter a file extension (e.g. .html)", "");
    std::string type(text::Trim(text::LowerCase(answer)));
    if (type.empty()) return;
    if (type.front() != '.') type.insert(0, 1, '.');
    if (type.size() > kLongestType) {
        boxes.MsgBox("That file extension is too long! (max 4 characters)",
                     platform::BoxStyle::Information, "Error");
        return;
    }
    list1_->AddItem(type);
    list1_->scrollToBottom();
}

void frmNew::Command4_Click() {
    platform::MessageBoxes& boxes = platform::System().boxes;
    const std::string selected = list1_->SelectedText();
    if (text::Trim(selected).empty()) {
        boxes.MsgBox("You must select a list item to delete.", platform::BoxStyle::Information,
                     "Error");
        return;
    }
    const auto answer =
        boxes.MsgBox("Are you sure you want to remove this list item?\r\n\r\n" + selected,
                     platform::BoxStyle::InformationYesNo, "Delete");
    if (answer != platform::BoxAnswer::Yes) return;
    if (const auto index = list1_->SelectedIndex()) list1_->RemoveItem(*index);
}

void frmNew::Command5_Click() {
    const auto answer = platform::System().boxes.MsgBox(
        "Are you sure you want to set the file types list to default?",
        platform::BoxStyle::InformationYesNo, "Default");
    if (answer != platform::BoxAnswer::No) MakeFileTypesFile();
}

}  // namespace ui
