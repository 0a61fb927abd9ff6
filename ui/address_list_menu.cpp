#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <algorithm>
#include <functional>
#include <set>

#include "forms/save_text.h"
#include "platform/qt/local_text.h"
#include "setup/file_types.h"
#include "setup/list_file.h"
#include "ui/address_list.h"
#include "ui/address_model.h"

/// The context menu of a list of addresses.
namespace ui {

namespace {

constexpr char kGetType[] = "Get files of this type";

void CopyLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text.append(text.empty() ? "" : "\n").append(line);
    if (!text.empty()) QApplication::clipboard()->setText(platform::FromBytes(text));
}

}  // namespace

void AddressList::MakeMenu() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    AddEntry("OpenAddress", "Open in the Browser", [this] { emit Activated(); });
    QAction* copy = AddEntry("CopyAddress", "Copy", [this] { CopyLines(AllSelected()); });
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    AddEntry("CopyAll", "Copy All", [this] { CopyLines(All()); });
    AddEntry("SaveList", "Save List...", [this] {
        AskAndSave(window(), "Save List", "addresses.txt", bas_General::JoinListFile(All()));
    });
    AddEntry("AddFilter", "Add to keyword filters...", [this] {
        const std::string address = Selected();
        if (!address.empty()) emit FilterWanted(address);
    });
}

void AddressList::OfferTypes() {
    QAction* entry = AddEntry("GetType", kGetType, [this] {
        std::set<std::string> types;
        for (const std::string& address : AllSelected())
            types.insert(bas_General::FileTypeOf(address));
        types.erase("");
        if (!types.empty()) emit TypesWanted({types.begin(), types.end()});
    });
    const auto name_type = [this, entry] {
        const std::string type = bas_General::FileTypeOf(Selected());
        entry->setEnabled(!type.empty());
        entry->setText(kGetType + (type.empty() ? "" : " (" + platform::FromBytes(type) + ")"));
    };
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, name_type);
    name_type();
}

QAction* AddressList::AddEntry(const char* name, const QString& caption,
                               const std::function<void()>& handler) {
    auto* entry = new QAction(caption, this);
    entry->setObjectName(name);
    connect(entry, &QAction::triggered, this, handler);
    addAction(entry);
    return entry;
}

std::vector<std::string> AddressList::AllSelected() {
    ShowChanges();
    std::vector<int> rows;
    for (const QModelIndex& row : selectionModel()->selectedRows())
        rows.push_back(row.row());
    std::ranges::sort(rows);  // they come in the order of selection
    std::vector<std::string> addresses;
    for (const int row : rows)
        addresses.push_back(model_->Address(row));
    return addresses;
}

std::vector<std::string> AddressList::All() {
    ShowChanges();
    std::vector<std::string> addresses;
    for (int row = 0; row < model_->rowCount(); ++row)
        addresses.push_back(model_->Address(row));
    return addresses;
}

}  // namespace ui
