#include "forms/folder_list.h"

#include <QByteArray>
#include <QKeyEvent>
#include <QStyle>
#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "widgets/twips.h"

namespace ui {

namespace {

constexpr int kPathRole = Qt::UserRole;

/// The nearest existing folder at or above `path`, as resolved text.
std::optional<std::string> NearestFolder(const std::string& path) {
    std::optional<std::string> folder = platform::ResolvePathText(path);
    while (folder && !platform::System().files.FolderExists(*folder)) {
        const std::string_view parent = platform::ParentOfResolved(*folder);
        if (parent == *folder) return std::nullopt;
        folder = std::string(parent);
    }
    return folder;
}

bool IsRoot(std::string_view resolved) {
    return platform::ParentOfResolved(resolved) == resolved;
}

/// Whether a folder with this name can be typed, stored and found again as text.
bool CanBeNamed(const std::string& name) {
    return platform::ToBytes(platform::FromBytes(name)) == name &&
           name.find('\\') == std::string::npos;
}

/// The system's own dialogs omit these folders, too.
bool IsHidden(const std::string& name) {
    return name.starts_with('.');
}

struct Subfolder {
    QString shown;
    std::string name;
};

std::vector<Subfolder> SubfoldersOf(const std::string& folder) {
    std::vector<Subfolder> subfolders;
    for (std::string& name : platform::System().files.Subfolders(folder)) {
        if (!IsHidden(name)) subfolders.push_back({platform::FromBytes(name), std::move(name)});
    }
    std::stable_sort(subfolders.begin(), subfolders.end(),
                     [](const Subfolder& a, const Subfolder& b) {
                         return QString::compare(a.shown, b.shown, Qt::CaseInsensitive) < 0;
                     });
    return subfolders;
}

}  // namespace

FolderList::FolderList(const char* name, QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QLatin1String(name));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setIndentation(Twips(240));
    setTextElideMode(Qt::ElideMiddle);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &FolderList::OpenItem);
}

bool FolderList::SetPath(const std::string& path) {
    std::optional<std::string> resolved = NearestFolder(path);
    if (!resolved) return false;
    // Keep the drive's letter as written.
    if (path.size() >= 2 && path[1] == ':') resolved->front() = path.front();

    path_ = IsRoot(*resolved) ? *resolved + "\\" : *resolved;
    clear();
    ShowAncestors(*resolved);
    ShowSubfolders(*resolved);
    keyboardSearch(QString());  // resets the search: the next key starts another folder's name
    setCurrentItem(open_);
    scrollToItem(open_, QAbstractItemView::PositionAtTop);
    emit PathChanged();
    return true;
}

void FolderList::ShowAncestors(const std::string& resolved) {
    open_ = nullptr;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = resolved.find('\\', begin);
        const std::string name = resolved.substr(begin, end - begin);
        auto* item = new QTreeWidgetItem;
        item->setText(0, platform::FromBytes(open_ == nullptr ? name + "\\" : name));
        item->setIcon(0, style()->standardIcon(open_ == nullptr ? QStyle::SP_DriveHDIcon
                                                                : QStyle::SP_DirOpenIcon));
        item->setData(0, kPathRole, QByteArray::fromStdString(resolved.substr(0, end)));
        if (open_ == nullptr) {
            addTopLevelItem(item);
        } else {
            open_->addChild(item);
            open_->setExpanded(true);
        }
        open_ = item;
    }
}

void FolderList::ShowSubfolders(const std::string& resolved) {
    const QIcon icon = style()->standardIcon(QStyle::SP_DirClosedIcon);
    QList<QTreeWidgetItem*> items;
    for (const Subfolder& subfolder : SubfoldersOf(resolved)) {
        auto* item = new QTreeWidgetItem;
        item->setText(0, subfolder.shown);
        item->setIcon(0, icon);
        item->setData(0, kPathRole, QByteArray::fromStdString(resolved + "\\" + subfolder.name));
        if (!CanBeNamed(subfolder.name)) {
            item->setDisabled(true);
            item->setToolTip(0, "This folder cannot be chosen: its name is not valid text.");
        }
        items.append(item);
    }
    open_->addChildren(items);
    open_->setExpanded(true);
}

void FolderList::OpenItem(const QTreeWidgetItem* item) {
    if (item == nullptr || item->isDisabled()) return;
    SetPath(item->data(0, kPathRole).toByteArray().toStdString());
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // Otherwise the dialog would press its Ok button.
            OpenItem(currentItem());
            return;
        case Qt::Key_Backspace:
            if (open_ != nullptr) OpenItem(open_->parent());
            return;
        default:
            QTreeWidget::keyPressEvent(event);
    }
}

}  // namespace ui
