#pragma once

#include <QTreeWidget>
#include <string>

namespace ui {

/// Browses folders: shows the open folder with the folders above it and its subfolders. A double
/// click or Enter opens a folder; Backspace opens the parent.
///
/// Paths are path text: "c:\Websites", and "c:\" for a root.
class FolderList : public QTreeWidget {
    Q_OBJECT

  public:
    FolderList(const char* name, QWidget* parent);

    /// The open folder; "" before the first one is opened.
    const std::string& Path() const { return path_; }

    /// Opens `path`, or its nearest existing parent. Returns false and changes nothing if there is
    /// none (a drive that is not ready).
    bool SetPath(const std::string& path);

  signals:
    /// Another folder was opened, or the same one was reloaded.
    void PathChanged();

  protected:
    /// Folders cannot be expanded or collapsed, so no expanders are drawn.
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void OpenItem(const QTreeWidgetItem* item);
    void ShowAncestors(const std::string& resolved);
    void ShowSubfolders(const std::string& resolved);

    std::string path_;
    QTreeWidgetItem* open_ = nullptr;
};

}  // namespace ui
