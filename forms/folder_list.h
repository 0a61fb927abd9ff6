#pragma once

#include <QTreeWidget>
#include <string>

namespace ui {

/// Browsing of folders: the open folder with the folders above it, and below it the folders that
/// it holds. Double click and Enter open one, Backspace opens the one above.
///
/// Paths are path text: "c:\Websites", and "c:\" for a root.
class FolderList : public QTreeWidget {
    Q_OBJECT

  public:
    FolderList(const char* name, QWidget* parent);

    /// The open folder; "" before any was opened.
    const std::string& Path() const { return path_; }

    /// Opens `path` or, where it is not there, the nearest folder above it that is. False, and
    /// nothing changes, when there is none (a drive that is not ready).
    bool SetPath(const std::string& path);

  signals:
    /// Another folder was opened, or the same one afresh.
    void PathChanged();

  protected:
    /// Everything is open here: no signs for opening and closing.
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
