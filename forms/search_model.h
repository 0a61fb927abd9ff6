#pragma once

#include <QAbstractListModel>
#include <QElapsedTimer>
#include <QTimer>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "search/search.h"

namespace ui {

/// The pages found in a copy, as a list for Qt's views. It searches for a few milliseconds at a
/// time and shows what it has found so far.
class SearchModel : public QAbstractListModel {
    Q_OBJECT

  public:
    explicit SearchModel(QObject* parent);

    /// Drops the current search and starts one for `query` in the copy in `folder`, path text.
    void Begin(const std::string& query, const std::string& folder);

    /// Whether the folder of the last search contains something to search.
    search::Extracts::State State() const { return state_; }
    /// False if the query is too short.
    bool HasQuery() const { return search_ != nullptr; }
    bool IsSearching() const { return work_.isActive(); }

    /// The numbers found so far, including what is not listed.
    std::size_t PageCount() const { return search_ ? search_->PageCount() : 0; }
    std::uint64_t MatchCount() const { return search_ ? search_->MatchCount() : 0; }

    const search::Hit& HitAt(int row) const { return hits_[static_cast<std::size_t>(row)]; }
    /// The words around the first match.
    QString SnippetAt(int row) const;
    struct Part {
        int begin, length;
    };
    /// The matches in that text.
    std::vector<Part> MatchesAt(int row) const;
    /// The whole words of the first match.
    std::string FirstWordsAt(int row) const;
    /// A page's path and its number of matches for display.
    static QString PathText(const search::Hit& hit);
    static QString MatchesText(const search::Hit& hit);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  signals:
    /// The rows have changed, or a search has started or ended.
    void Refreshed();

  private:
    void Work();
    void ShowHits();
    const std::string& SnippetBytes(int row) const;

    search::Extracts::State state_ = search::Extracts::State::NoFolder;
    std::unique_ptr<search::Search> search_;
    std::vector<search::Hit> hits_;
    mutable std::map<int, std::string> snippets_;  ///< of the rows that have been displayed
    QTimer work_;
    QElapsedTimer since_shown_;
};

}  // namespace ui
