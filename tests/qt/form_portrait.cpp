#include "tests/qt/form_portrait.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaProperty>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QToolButton>
#include <QTreeWidget>
#include <map>
#include <memory>
#include <set>

namespace portrait {

namespace {

template <typename... Kinds>
const QObject& UsualFor(const QObject& object) {
    static const std::map<QByteArray, std::unique_ptr<QObject>> usual = [] {
        std::map<QByteArray, std::unique_ptr<QObject>> made;
        (made.emplace(Kinds::staticMetaObject.className(), std::make_unique<Kinds>()), ...);
        return made;
    }();
    const QMetaObject* kind = object.metaObject();
    while (!usual.contains(kind->className()))
        kind = kind->superClass();
    return *usual.at(kind->className());
}

/// An object of the same toolkit class without any settings.
const QObject& Usual(const QObject& object) {
    return UsualFor<QObject, QAction, QWidget, QFrame, QDialog, QLabel, QLineEdit, QComboBox,
                    QPushButton, QToolButton, QCheckBox, QProgressBar, QTreeWidget, QTreeView,
                    QListWidget, QListView, QTableView>(object);
}

QString TextOf(const QVariant& value) {
    if (value.typeId() == QMetaType::QIcon) return value.value<QIcon>().isNull() ? "" : "yes";
    if (value.typeId() == QMetaType::QCursor)
        return QString::number(value.value<QCursor>().shape());
    if (value.typeId() == QMetaType::QFont) {
        const auto font = value.value<QFont>();
        const double size = QFontInfo(font).pixelSize() / double(QFontInfo(QFont()).pixelSize());
        return QString::number(qRound(size * 10)) + (font.bold() ? " bold" : "");
    }
    return value.toString().replace(QDir::homePath(), "~").replace("\n", "\\n");
}

/// Lengths in pixels depend on the desktop, and the others follow from other properties.
bool IsLeftOut(const QByteArray& property) {
    static const std::set<QByteArray> others = {"objectName",
                                                "x",
                                                "y",
                                                "focus",
                                                "isActiveWindow",
                                                "visible",
                                                "indent",
                                                "indentation",
                                                "windowIcon",
                                                "displayText",
                                                "cursorPosition",
                                                "hasSelectedText",
                                                "iconText"};
    const QByteArray lower = property.toLower();
    return others.contains(property) || lower.contains("width") || lower.contains("height") ||
           lower.contains("section");
}

QString LooksOf(const QObject& object) {
    QString looks = object.objectName() + " " + object.metaObject()->className();
    const QObject& usual = Usual(object);
    for (int i = 0; i < usual.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = usual.metaObject()->property(i);
        const QString value = TextOf(property.read(&object));
        if (IsLeftOut(property.name()) || value == TextOf(property.read(&usual))) continue;
        looks += QString(" %1=\"%2\"").arg(property.name(), value);
    }
    if (const auto* label = qobject_cast<const QLabel*>(&object); label && label->buddy())
        looks += " for " + label->buddy()->objectName();
    return looks;
}

QRect PlaceIn(const QWidget& form, const QWidget& control) {
    if (!control.isVisibleTo(&form)) return {};
    const QPoint corner = control.mapTo(&form, QPoint());
    const auto percent = [](int part, int whole) { return qRound(100.0 * part / whole); };
    return {percent(corner.x(), form.width()), percent(corner.y(), form.height()),
            percent(control.width(), form.width()), percent(control.height(), form.height())};
}

QString LineOf(const Line& line) {
    const QRect& place = line.place;
    const QString where = place.isNull() ? QString("-")
                                         : QString("%1,%2 %3x%4")
                                               .arg(place.x())
                                               .arg(place.y())
                                               .arg(place.width())
                                               .arg(place.height());
    return where + " | " + line.looks + "\n";
}

Line LineFrom(const QByteArray& text) {
    Line line;
    int x = 0, y = 0, width = 0, height = 0;
    if (std::sscanf(text, "%d,%d %dx%d", &x, &y, &width, &height) == 4)
        line.place = {x, y, width, height};
    line.looks = QString::fromUtf8(text.mid(text.indexOf("| ") + 2)).chopped(1);
    return line;
}

bool AreAlike(const QRect& a, const QRect& b) {
    // Edges move a little with the version of the toolkit and of the fonts.
    constexpr int kPercent = 2;
    const QMargins more(kPercent, kPercent, kPercent, kPercent);
    return a.isNull() == b.isNull() &&
           (a.isNull() || ((a + more).contains(b) && (b + more).contains(a)));
}

/// Whether the program made it, and not the toolkit.
bool IsOurs(const QObject& object) {
    const bool is_named = !object.objectName().isEmpty() &&
                          !object.objectName().startsWith("qt_") &&
                          !object.objectName().startsWith("_q_");
    return is_named || qobject_cast<const QLabel*>(&object) != nullptr;
}

}  // namespace

std::vector<Line> Of(const QWidget& form) {
    std::vector<Line> lines = {{{}, LooksOf(form)}};
    for (const QWidget* control : form.findChildren<QWidget*>())
        if (IsOurs(*control) && control->window() == &form)
            lines.push_back({PlaceIn(form, *control), LooksOf(*control)});
    for (const QAction* action : form.findChildren<QAction*>())
        if (IsOurs(*action)) lines.push_back({{}, LooksOf(*action)});
    QString order = "order of Tab:";
    for (const QWidget* at = form.nextInFocusChain(); at != &form; at = at->nextInFocusChain())
        if (IsOurs(*at) && (at->focusPolicy() & Qt::TabFocus) != 0) order += " " + at->objectName();
    lines.push_back({{}, order});
    for (const QShortcut* shortcut : form.findChildren<QShortcut*>())
        lines.push_back({{}, "shortcut " + shortcut->key().toString()});
    return lines;
}

void ExpectApproved(const std::vector<Line>& found, const char* file) {
    QFile approved(file);
    ASSERT_TRUE(approved.open(QIODevice::ReadOnly));
    bool differs = false;
    for (const Line& line : found) {
        const Line expected = LineFrom(approved.readLine());
        if (line.looks == expected.looks && AreAlike(line.place, expected.place)) continue;
        differs = true;
        ADD_FAILURE() << "expected " << LineOf(expected).toStdString() << "found    "
                      << LineOf(line).toStdString();
    }
    EXPECT_TRUE(approved.atEnd()) << "a control is missing";
    if (!differs && approved.atEnd()) return;
    QFile copy(QDir::temp().filePath("form_portraits.txt"));
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
    for (const Line& line : found)
        copy.write(LineOf(line).toUtf8());
    ADD_FAILURE() << "All that was found is in " << copy.fileName().toStdString();
}

}  // namespace portrait
