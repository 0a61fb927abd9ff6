#pragma once

#include <QWidget>
#include <vector>

namespace portrait {

/// What a form shows of one control, action or shortcut, apart from colours.
struct Line {
    QRect place;    ///< in percent of the form; null if it is not visible
    QString looks;  ///< its name, class, and the properties that differ from the class's default
};

/// All controls, actions and shortcuts of a form, without the parts that the toolkit adds.
std::vector<Line> Of(const QWidget& form);

/// Expects the lines of `file`. If they differ, writes `found` to a temporary file that the failure
/// names.
void ExpectApproved(const std::vector<Line>& found, const char* file);

}  // namespace portrait
