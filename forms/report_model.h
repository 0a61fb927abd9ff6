#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QTimer>

#include "forms/report_rows.h"

namespace ui {

/// The report as a table for Qt's views. It follows the report by itself, a few times a second, and
/// never works for more than a few milliseconds at a time.
class ReportModel : public QAbstractTableModel, private crawl::ReportObserver {
    Q_OBJECT

  public:
    /// The report must outlive this object.
    ReportModel(crawl::AddressReport& report, QObject* parent);
    ~ReportModel() override;

    void SetView(const ReportView& view);
    const ReportView& View() const { return rows_.View(); }
    /// Whether the rows of the last view are still being searched for.
    bool IsSearching() const { return searching_; }

    /// The report's row that is shown at `index`.
    const crawl::ReportRow& RowAt(int index) const { return report_.Row(NumberAt(index)); }
    /// The number of that row in the report.
    std::size_t NumberAt(int index) const { return rows_.RowAt(static_cast<std::size_t>(index)); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  signals:
    /// Rows or their contents may have changed, or a search has started or ended.
    void Refreshed();

  private:
    void AboutToClear() override;
    void Refresh();
    void BeginUpdate();
    void Work();
    void ShowFoundRows();
    void ShowAddedRows();
    static QVariant ColourOf(crawl::Outcome outcome);

    crawl::AddressReport& report_;
    ReportRows rows_;
    int shown_count_ = 0;  ///< the row count known to the views
    bool searching_ = false;
    std::uint64_t shown_changes_ = 0;
    QTimer refresh_;
    QTimer work_;
    QElapsedTimer since_update_;
    qint64 rest_ = 0;  ///< the least time between the starts of two updates, in milliseconds
};

}  // namespace ui
