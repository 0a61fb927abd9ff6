#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include "forms/report_rows.h"

class QAction;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace ui {

class ElidedLabel;
class ReportModel;
class ReportSaver;
class ReportTable;

/// The report as a table. Modeless, so that the crawl can be watched. The dialog deletes itself
/// when closed.
class ReportDialog : public QDialog {
    Q_OBJECT

  public:
    explicit ReportDialog(QWidget* parent);

    /// Shows the dialog over `parent`. A dialog that is already open comes to the front.
    static ReportDialog* ShowOver(QWidget* parent);

  private:
    void MakeControls();
    void MakeActions();
    QAction* MakeAction(const char* name, const QString& caption, const QList<QKeySequence>& keys);
    void MakeSortMenu();
    void PlaceControls();
    void ConnectHandlers();

    void ShowCounts();
    void ShowSummary();
    void EnableActions();
    void SetFilter();
    void OpenFile();
    void OpenAddress();
    void CopyRows(bool addresses_only);
    void SaveAs();
    void Answer(const QString& words);

    ReportModel* model_;
    QLineEdit* filter_;
    QListWidget* outcomes_;
    ReportTable* rows_;
    ElidedLabel* summary_;
    QTimer answered_;  ///< runs while `summary_` shows an answer
    QAction* open_file_;
    QAction* open_address_;
    QAction* copy_rows_;
    QAction* copy_addresses_;
    QPushButton* open_button_;
    QPushButton* copy_button_;
    QPushButton* save_button_;
    QPushButton* close_button_;
    QPointer<ReportSaver> saver_;
};

}  // namespace ui
