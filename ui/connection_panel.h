#pragma once

#include <QFrame>
#include <QLabel>
#include <QScrollArea>
#include <string>

#include "crawl/crawl_state.h"
#include "text/one_based.h"
#include "ui/rate_graph.h"
#include "widgets/elided_label.h"

namespace ui {

/// The connection panel: two headings, beside them the rate of the last minute, and below them a
/// row for each connection. The rows scroll if the panel is too low.
class ConnectionPanel : public QFrame {
    Q_OBJECT

  public:
    explicit ConnectionPanel(QWidget* parent);

    /// The height that shows all rows.
    int FullHeight() const;
    /// The height that shows a few rows.
    int LeastHeight() const;

    void SetStatus(int row, const std::string& text);
    void SetSize(int row, const std::string& text);
    void SetReceived(int row, const std::string& text);

    RateGraph& Picture3() { return *picture3_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Row {
        ElidedLabel* x = nullptr;   ///< the connection's number
        ElidedLabel* l = nullptr;   ///< status
        ElidedLabel* k = nullptr;   ///< expected size; stays hidden
        ElidedLabel* k2 = nullptr;  ///< bytes received
    };

    void MakeRows();
    void PlaceRows();
    /// Describes a row in one sentence for screen readers.
    void Describe(int row);

    QLabel* connections_heading_;
    QLabel* data_in_heading_;
    RateGraph* picture3_;
    QScrollArea* scroller_;
    QWidget* rows_widget_;
    text::OneBased<Row, crawl::kSlotCount> rows_;
};

}  // namespace ui
