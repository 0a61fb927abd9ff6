#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "output/copy_survey.h"
#include "platform/files.h"

class QLabel;

namespace ui {

class NoteLine;

/// Tells whoever is about to download a site what an earlier download of it has left in the folder:
/// files that will not be fetched again, and placeholders of files that never came, which would be
/// left out. Those it removes when asked to, but never those of a download that is under way.
///
/// It looks a little after the last change, and in small slices between events: a large folder or a
/// slow disk holds up no key.
class CopyNotes : public QObject {
    Q_OBJECT

  public:
    explicit CopyNotes(QWidget* form);

    /// The two lines, which the form places.
    QLabel* Copy() const { return copy_; }
    NoteLine* Unfinished() const { return unfinished_; }

    /// Looks for a copy of the site of `address`, as it was typed, in `folder`, which is
    /// normalised.
    void LookFor(const std::string& address, const std::string& folder);

    /// Looks no more. For the start of a crawl, whose placeholders are none of an earlier one.
    void Stop();

  signals:
    /// The line on unfinished files came or went.
    void UnfinishedShown(bool shown);

    /// Unfinished files are being removed, or no more.
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
    QTimer timer_;        ///< until the first look, then from slice to slice
    std::string host_;    ///< whose copy it is
    std::string folder_;  ///< where it lies; "" where there cannot be one
    std::string target_folder_;
    std::unique_ptr<platform::FolderClaim> claim_;  ///< no crawl begins there during a removal
    bool removing_ = false;
    std::unique_ptr<bas_Output::CopySurvey> survey_;
};

}  // namespace ui
