#include "forms/search_model.h"

#include <QDir>
#include <algorithm>
#include <utility>

#include "forms/counts.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "search/query.h"
#include "widgets/elided_text.h"

namespace ui {

namespace {

constexpr qint64 kWorkMilliseconds = 6;
constexpr qint64 kShowMilliseconds = 250;
constexpr std::size_t kMostListed = 1000;
constexpr qsizetype kLeastLetters = 2;

bool IsLongEnough(const std::string& query) {
    qsizetype letters = 0;
    for (const std::string& term : search::TermsOf(query))
        letters += platform::FromBytes(term).size();
    return letters >= kLeastLetters;
}

}  // namespace

SearchModel::SearchModel(QObject* parent) : QAbstractListModel(parent) {
    connect(&work_, &QTimer::timeout, this, &SearchModel::Work);
}

void SearchModel::Begin(const std::string& query, const std::string& folder) {
    const platform::Files& files = platform::System().files;
    search::Extracts extracts = search::ExtractsOf(folder, files);
    state_ = extracts.state;
    search_.reset();
    if (state_ == search::Extracts::State::Readable && IsLongEnough(query)) {
        search_ = std::make_unique<search::Search>(query, std::move(extracts), files);
        work_.start(0);
        // Most copies are small: their results are available at once.
        Work();
    } else {
        work_.stop();
    }
    // The rows of the last search are invalid now.
    ShowHits();
}

void SearchModel::Work() {
    QElapsedTimer worked;
    worked.start();
    bool more = true;
    while (more && !worked.hasExpired(kWorkMilliseconds))
        more = search_->Step();
    if (!more) work_.stop();
    if (!more || since_shown_.hasExpired(kShowMilliseconds)) ShowHits();
}

void SearchModel::ShowHits() {
    beginResetModel();
    hits_ = search_ ? search_->Best(kMostListed) : std::vector<search::Hit>();
    snippets_.clear();
    endResetModel();
    since_shown_.start();
    emit Refreshed();
}

const std::string& SearchModel::SnippetBytes(int row) const {
    const auto [snippet, is_new] = snippets_.try_emplace(row);
    if (is_new) snippet->second = search_->SnippetOf(HitAt(row));
    return snippet->second;
}

QString SearchModel::SnippetAt(int row) const {
    return platform::FromBytes(SnippetBytes(row));
}

std::vector<SearchModel::Part> SearchModel::MatchesAt(int row) const {
    const std::string& bytes = SnippetBytes(row);
    const auto place = [&](std::size_t at) {
        return static_cast<int>(platform::FromBytes(bytes.substr(0, at)).size());
    };
    std::vector<Part> parts;
    for (const search::Span& match : search_->MatchesIn(bytes)) {
        const int begin = place(match.begin);
        parts.push_back({begin, place(match.end) - begin});
    }
    return parts;
}

std::string SearchModel::FirstWordsAt(int row) const {
    return search_->FirstWordsIn(SnippetBytes(row));
}

QString SearchModel::PathText(const search::Hit& hit) {
    QString path = platform::FromBytes(hit.path);
    return OneLine(path.replace('\\', QDir::separator()));
}

QString SearchModel::MatchesText(const search::Hit& hit) {
    return CountText(hit.matches, "match", "matches");
}

int SearchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(hits_.size());
}

QVariant SearchModel::data(const QModelIndex& index, int role) const {
    const search::Hit& hit = HitAt(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return role == Qt::ToolTipRole ? TooltipText(PathText(hit)) : PathText(hit);
    }
    if (role == Qt::AccessibleTextRole) {
        return PathText(hit) + ", " + MatchesText(hit) + ": " + SnippetAt(index.row());
    }
    return {};
}

}  // namespace ui
