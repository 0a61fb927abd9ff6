#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "output/copy_survey.h"
#include "platform/files.h"

class QLabel;

namespace ui {

class NoteLine;

/// Shows what an earlier download of the same site has left in the folder: files that will not be
/// fetched again, and placeholders, whose files would be left out. Removes placeholders on request,
/// but never those of a running download.
///
/// Searches shortly after the last change, in small slices between events, so that a large folder
/// or a slow disk does not delay any key.
class CopyNotes : public QObject {
    Q_OBJECT

  public:
    explicit CopyNotes(QWidget* form);

    /// The two lines, to be placed by the form.
    QLabel* Copy() const { return copy_; }
    NoteLine* Unfinished() const { return unfinished_; }

    /// Searches `folder`, which must be normalized, for a copy of the site of `address`, as typed.
    void LookFor(const std::string& address, const std::string& folder);

    /// Stops searching. Call this at the start of a crawl, whose own placeholders must not be
    /// reported.
    void Stop();

  signals:
    /// The line about unfinished files has appeared or disappeared.
    void UnfinishedShown(bool shown);

    /// The removal of unfinished files has started or ended.
    void Removing(bool removing);

  private:
    void LookLater();
    void Work();
    void AskAndRemove();
    void ShowFound(bool all);
    void ShowRemoved();
    void ShowUnfinished(const QString& words, const QString& link);

    QLabel* copy_;
    NoteLine* unfinished_;
    QTimer timer_;        ///< delays the search, then runs its slices
    std::string host_;    ///< the site's host
    std::string folder_;  ///< the host's folder; "" if there cannot be one
    std::string target_folder_;
    std::unique_ptr<platform::FolderClaim> claim_;  ///< marks the folder as in use
    bool removing_ = false;
    std::unique_ptr<bas_Output::CopySurvey> survey_;
};

}  // namespace ui
